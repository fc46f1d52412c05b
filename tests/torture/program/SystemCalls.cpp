#include "tests/torture/program/SystemCalls.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <map>
#include <set>
#include <system_error>

#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vantel::torture {

namespace {

constexpr int beginMark = -4242;
constexpr int endMark = -4343;

/// Refused ones would be a lack of memory, or mean nothing.
const std::set<long> alwaysPassing = {
    SYS_brk,     SYS_mmap,  SYS_munmap,     SYS_mremap,         SYS_mprotect,
    SYS_madvise, SYS_futex, SYS_exit_group, SYS_rt_sigprocmask, SYS_clock_gettime};

const std::map<long, const char*> names = {
    {SYS_openat, "openat"},       {SYS_close, "close"},           {SYS_read, "read"},
    {SYS_pread64, "pread"},       {SYS_write, "write"},           {SYS_lseek, "lseek"},
    {SYS_ftruncate, "ftruncate"}, {SYS_fsync, "fsync"},           {SYS_fdatasync, "fdatasync"},
    {SYS_flock, "flock"},         {SYS_fchmod, "fchmod"},         {SYS_getdents64, "getdents"},
    {SYS_fcntl, "fcntl"},         {SYS_newfstatat, "newfstatat"}, {SYS_getrandom, "getrandom"},
#ifdef SYS_mkdir
    {SYS_mkdir, "mkdir"},         {SYS_rename, "rename"},         {SYS_unlink, "unlink"},
    {SYS_stat, "stat"},           {SYS_fstat, "fstat"},           {SYS_open, "open"},
#endif
};

void mark(int which) {
    ::syscall(SYS_close, which);
}

void require(bool succeeded, const char* what) {
    if (!succeeded)
        throw std::system_error(errno, std::generic_category(), what);
}

#ifdef __x86_64__

/// The registers of a process that stands at a system call.
class Registers {
public:
    explicit Registers(pid_t process)
        : m_process(process) {
        require(::ptrace(PTRACE_GETREGS, m_process, nullptr, &m_registers) == 0, "PTRACE_GETREGS");
    }

    void skipCall() { put(m_registers.orig_rax, static_cast<unsigned long long>(-1)); }
    void setLength(std::size_t length) { put(m_registers.rdx, length); }
    void setError(int number) { put(m_registers.rax, static_cast<unsigned long long>(-number)); }

private:
    void put(unsigned long long& place, unsigned long long value) {
        place = value;
        require(::ptrace(PTRACE_SETREGS, m_process, nullptr, &m_registers) == 0, "PTRACE_SETREGS");
    }

    pid_t m_process;
    user_regs_struct m_registers{};
};

constexpr bool knowsRegisters = true;

#else

class Registers {
public:
    explicit Registers(pid_t) {}
    void skipCall() {}
    void setLength(std::size_t) {}
    void setError(int) {}
};

constexpr bool knowsRegisters = false;

#endif

class Watcher {
public:
    Watcher(pid_t process, const std::function<Fate(std::size_t, const SystemCall&)>& decide)
        : m_process(process)
        , m_decide(decide) {}

    Watched run() {
        int status = 0;
        require(::waitpid(m_process, &status, 0) == m_process, "waitpid");
        const long options = PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL;
        require(::ptrace(PTRACE_SETOPTIONS, m_process, nullptr, options) == 0, "PTRACE_SETOPTIONS");
        int signal = 0;
        while (::ptrace(PTRACE_SYSCALL, m_process, nullptr, signal) == 0 || errno == ESRCH) {
            require(::waitpid(m_process, &status, 0) == m_process, "waitpid");
            if (WIFEXITED(status) || WIFSIGNALED(status))
                break;
            const bool isCall = WSTOPSIG(status) == (SIGTRAP | 0x80);
            signal = isCall ? 0 : WSTOPSIG(status);
            if (isCall)
                stopAtCall();
        }
        m_watched.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
        return std::move(m_watched);
    }

private:
    void stopAtCall() {
        __ptrace_syscall_info info{};
        if (::ptrace(PTRACE_GET_SYSCALL_INFO, m_process, sizeof info, &info) < 0)
            return;
        if (info.op == PTRACE_SYSCALL_INFO_ENTRY)
            enter(static_cast<long>(info.entry.nr), info.entry.args);
        else if (info.op == PTRACE_SYSCALL_INFO_EXIT)
            leave();
    }

    template <typename Arguments>
    void enter(long number, const Arguments& arguments) {
        m_fate = {};
        const int first = static_cast<int>(arguments[0]);
        if (number == SYS_close && (first == beginMark || first == endMark)) {
            m_isOn = first == beginMark;
            return;
        }
        if (!m_isOn || alwaysPassing.contains(number))
            return;
        const SystemCall call{number, static_cast<std::size_t>(arguments[2])};
        m_fate = m_decide(m_watched.calls.size(), call);
        m_watched.calls.push_back(call);
        prepare(number);
    }

    void prepare(long number) {
        if (m_fate.kind == Fate::Kind::kill)
            ::kill(m_process, SIGKILL);
        if (m_fate.kind == Fate::Kind::fail && number != SYS_close)
            Registers(m_process).skipCall();
        if (m_fate.kind == Fate::Kind::tearAndKill)
            Registers(m_process).setLength(m_fate.length);
    }

    void leave() {
        if (m_fate.kind == Fate::Kind::fail)
            Registers(m_process).setError(m_fate.number);
        if (m_fate.kind == Fate::Kind::tearAndKill)
            ::kill(m_process, SIGKILL);
        m_fate = {};
    }

    pid_t m_process;
    const std::function<Fate(std::size_t, const SystemCall&)>& m_decide;
    Watched m_watched;
    bool m_isOn = false;
    Fate m_fate;
};

} // namespace

std::string name(long systemCall) {
    const auto found = names.find(systemCall);
    return found != names.end() ? found->second : "call " + std::to_string(systemCall);
}

std::string whyNotWatchable() {
    if (!knowsRegisters)
        return "system calls are refused on x86-64 alone";
    const auto nothing = [] {};
    const auto pass = [](std::size_t, const SystemCall&) { return Fate{}; };
    try {
        return watch(nothing, pass).status == 0 ? "" : "a process that is watched here does not end well";
    } catch (const std::system_error& error) {
        return error.what();
    }
}

Watched watch(const std::function<void()>& body,
              const std::function<Fate(std::size_t, const SystemCall&)>& decide) {
    const pid_t process = ::fork();
    require(process >= 0, "fork");
    if (process == 0) {
        if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0)
            ::_exit(EXIT_FAILURE);
        ::raise(SIGSTOP);
        mark(beginMark);
        body();
        mark(endMark);
        ::_exit(EXIT_SUCCESS);
    }
    return Watcher(process, decide).run();
}

void pauseWatching() {
    mark(endMark);
}

} // namespace vantel::torture
