#include "host/schedule/WakeTimer.h"

#include "platform/CheckedMath.h"

#include <QSocketNotifier>
#include <QTimer>
#include <QtGlobal>
#include <algorithm>
#include <cerrno>
#include <cmath>

#include <sys/timerfd.h>
#include <unistd.h>

namespace vantel {

namespace {

constexpr std::int64_t nanosecondsPerSecond = 1'000'000'000;
constexpr std::int64_t year2200 = 7'258'118'400 * nanosecondsPerSecond;

} // namespace

std::int64_t timerNanoseconds(Instant moment) {
    const double exact = secondsSinceUnixEpoch(moment) * static_cast<double>(nanosecondsPerSecond);
    if (std::isnan(exact) || exact > static_cast<double>(year2200))
        return 0;
    return std::max<std::int64_t>(1, truncatedToInteger(std::ceil(exact)).value_or(1));
}

WakeTimer::WakeTimer(QObject* parent)
    : Alarm(parent)
    , m_descriptor(::timerfd_create(CLOCK_REALTIME, TFD_NONBLOCK | TFD_CLOEXEC)) {
    if (m_descriptor < 0)
        qFatal("The system gives no timer: errno %d", errno);
    m_notifier = new QSocketNotifier(m_descriptor, QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &WakeTimer::read);
    arm(0);
}

WakeTimer::~WakeTimer() {
    delete m_notifier;
    ::close(m_descriptor);
}

void WakeTimer::wakeAt(std::optional<Instant> moment) {
    const std::int64_t nanoseconds = moment ? timerNanoseconds(*moment) : 0;
    if (nanoseconds != m_armed)
        arm(nanoseconds);
}

void WakeTimer::arm(std::int64_t nanoseconds) {
    m_armed = nanoseconds;
    itimerspec setting{};
    setting.it_value.tv_sec = nanoseconds / nanosecondsPerSecond;
    setting.it_value.tv_nsec = nanoseconds % nanosecondsPerSecond;
    const int flags = TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET;
    // The clock may have been set since the last look; the kernel says so here, and no more through `read`.
    if (::timerfd_settime(m_descriptor, flags, &setting, nullptr) != 0 && errno == ECANCELED)
        QTimer::singleShot(0, this, &WakeTimer::tellStep);
}

void WakeTimer::read() {
    std::uint64_t expirations = 0;
    const ssize_t got = ::read(m_descriptor, &expirations, sizeof expirations);
    if (got < 0 && errno == ECANCELED)
        return tellStep();
    if (got != sizeof expirations)
        return;
    m_armed = 0;
    Q_EMIT reached();
}

void WakeTimer::tellStep() {
    arm(0);
    Q_EMIT clockStepped();
}

} // namespace vantel
