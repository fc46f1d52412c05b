#include <algorithm>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <map>
#include <mutex>
#include <thread>
#include <utility>

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/inotify.h>
#include <sys/mman.h>
#include <sys/time.h>
#include <sys/timerfd.h>
#include <unistd.h>

/// Preloaded into a program, this library shows it another real-time clock, which can be set while the
/// machine's own stays as it is. It is ahead by the nanoseconds that stand in a file, in 8 bytes; its timers
/// hear of each write to that file what the kernel tells them when the clock is set.
namespace vantel::testing {
namespace {

constexpr std::int64_t nanosecondsPerSecond = 1'000'000'000;

/// The function that a program would call without this library.
template <typename Function>
Function original(const char* name) {
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

/// A test with a wrong clock would say nothing about the program.
void require(bool isGiven, const char* what) {
    if (isGiven)
        return;
    std::perror(what);
    std::abort();
}

const char* clockFile() {
    const char* path = std::getenv("VANTEL_STEPPED_CLOCK");
    require(path != nullptr, "VANTEL_STEPPED_CLOCK");
    return path;
}

const std::atomic<std::int64_t>* sharedAhead() {
    const int descriptor = ::open(clockFile(), O_RDONLY | O_CLOEXEC);
    require(descriptor >= 0, "the file of the clock");
    void* place = ::mmap(nullptr, sizeof(std::int64_t), PROT_READ, MAP_SHARED, descriptor, 0);
    require(place != MAP_FAILED, "the file of the clock in memory");
    ::close(descriptor);
    return static_cast<const std::atomic<std::int64_t>*>(place);
}

std::int64_t ahead() {
    static const std::atomic<std::int64_t>* const shared = sharedAhead();
    return *shared;
}

std::int64_t nanoseconds(const timespec& time) {
    return time.tv_sec * nanosecondsPerSecond + time.tv_nsec;
}

timespec timeOf(std::int64_t nanoseconds) {
    return {.tv_sec = nanoseconds / nanosecondsPerSecond, .tv_nsec = nanoseconds % nanosecondsPerSecond};
}

timespec steppedNow() {
    timespec now{};
    require(::clock_gettime(CLOCK_REALTIME, &now) == 0, "the clock");
    return now;
}

int setOriginal(int descriptor, int flags, const itimerspec& setting, itimerspec* before) noexcept {
    static const auto set = original<decltype(&::timerfd_settime)>("timerfd_settime");
    return set(descriptor, flags, &setting, before);
}

ssize_t readOriginal(int descriptor, void* bytes, size_t size) {
    static const auto read = original<decltype(&::read)>("read");
    return read(descriptor, bytes, size);
}

/// Zero takes a timer back. What is over before 1970 on the machine's clock is over at once.
itimerspec onTheMachinesClock(itimerspec setting) {
    if (const std::int64_t moment = nanoseconds(setting.it_value); moment != 0)
        setting.it_value = timeOf(std::max<std::int64_t>(1, moment - ahead()));
    return setting;
}

/// The timers that hear of steps, as the kernel keeps them: each knows by how much the clock was ahead when
/// it last heard, so that it hears of a step once, whether by a read or by being set.
class Timers {
public:
    /// Fails with ECANCELED where the clock was stepped meanwhile, and is set all the same.
    int set(int descriptor, int flags, const itimerspec& setting, itimerspec* before) {
        const std::lock_guard lock(m_mutex);
        m_heard.try_emplace(descriptor, ahead());
        if (setOriginal(descriptor, flags, onTheMachinesClock(setting), before) != 0)
            return -1;
        return hearsStep(descriptor) ? failure() : 0;
    }

    /// A read of any descriptor.
    ssize_t read(int descriptor, void* bytes, size_t size) {
        return takeStep(descriptor, bytes, size) ? failure() : readOriginal(descriptor, bytes, size);
    }

    void forget(int descriptor) {
        const std::lock_guard lock(m_mutex);
        m_heard.erase(descriptor);
    }

    /// Lets whoever waits for a timer read it.
    void wakeThoseThatMissedAStep() {
        constexpr itimerspec atOnce{.it_interval = {}, .it_value = {.tv_sec = 0, .tv_nsec = 1}};
        const std::lock_guard lock(m_mutex);
        for (const auto& [descriptor, heard] : m_heard)
            if (heard != ahead())
                setOriginal(descriptor, TFD_TIMER_ABSTIME, atOnce, nullptr);
    }

private:
    static int failure() {
        errno = ECANCELED;
        return -1;
    }

    bool hearsStep(int descriptor) {
        const auto timer = m_heard.find(descriptor);
        if (timer == m_heard.end())
            return false;
        const std::int64_t now = ahead();
        return std::exchange(timer->second, now) != now;
    }

    /// What has expired meanwhile is taken back, as by the kernel.
    bool takeStep(int descriptor, void* bytes, size_t size) {
        const std::lock_guard lock(m_mutex);
        if (!hearsStep(descriptor))
            return false;
        readOriginal(descriptor, bytes, size);
        return true;
    }

    std::mutex m_mutex;
    std::map<int, std::int64_t> m_heard;
};

/// Never taken down: the program may read and close until its last moment.
Timers& timers() {
    static Timers& all = *new Timers;
    return all;
}

/// Signals are for the threads of the program.
void refuseSignals() {
    sigset_t all;
    ::sigfillset(&all);
    ::pthread_sigmask(SIG_BLOCK, &all, nullptr);
}

void followSteps(int watch) {
    refuseSignals();
    alignas(inotify_event) char events[4096];
    do
        timers().wakeThoseThatMissedAStep();
    while (::read(watch, events, sizeof events) > 0);
}

bool beginToFollowSteps() {
    const int watch = ::inotify_init1(IN_CLOEXEC);
    require(::inotify_add_watch(watch, clockFile(), IN_MODIFY) >= 0, "a watch of the file of the clock");
    std::thread(followSteps, watch).detach();
    return true;
}

} // namespace
} // namespace vantel::testing

using namespace vantel::testing;

extern "C" {

int clock_gettime(clockid_t clock, timespec* time) noexcept {
    static const auto get = original<decltype(&::clock_gettime)>("clock_gettime");
    const int result = get(clock, time);
    if (result == 0 && clock == CLOCK_REALTIME)
        *time = timeOf(nanoseconds(*time) + ahead());
    return result;
}

int gettimeofday(timeval* time, void*) noexcept {
    const timespec now = steppedNow();
    *time = {.tv_sec = now.tv_sec, .tv_usec = now.tv_nsec / 1000};
    return 0;
}

time_t time(time_t* time) noexcept {
    const time_t now = steppedNow().tv_sec;
    if (time != nullptr)
        *time = now;
    return now;
}

/// Only timers of the real-time clock can ask to hear of its steps, and the program sets no others of it.
int timerfd_settime(int descriptor, int flags, const itimerspec* setting, itimerspec* before) noexcept {
    if ((flags & TFD_TIMER_CANCEL_ON_SET) == 0)
        return setOriginal(descriptor, flags, *setting, before);
    [[maybe_unused]] static const bool isFollowing = beginToFollowSteps();
    return timers().set(descriptor, flags, *setting, before);
}

ssize_t read(int descriptor, void* bytes, size_t size) {
    return timers().read(descriptor, bytes, size);
}

int close(int descriptor) {
    static const auto shut = original<decltype(&::close)>("close");
    timers().forget(descriptor);
    return shut(descriptor);
}

/// While there is one thread. Later, one that looks a function up may wait for one that links a library,
/// whose beginning asks for the time and would wait for the function.
[[gnu::constructor]] void lookEverythingUp() {
    constexpr itimerspec never{};
    constexpr int none = -1;
    steppedNow();
    timerfd_settime(none, 0, &never, nullptr);
    read(none, nullptr, 0);
    close(none);
    errno = 0;
}
}
