#include "host/app/SignalWatch.h"

#include <QSocketNotifier>
#include <cerrno>
#include <csignal>
#include <cstdint>

#include <sys/eventfd.h>
#include <unistd.h>

namespace vantel {

namespace {

/// A handler may reach nothing but this. Blocked signals would be simpler, but programs that are started from
/// here would inherit them.
// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables): nothing is handed to a handler.
volatile std::sig_atomic_t descriptorForHandler = -1;

void handle(int) {
    const int numberBefore = errno;
    const std::uint64_t one = 1;
    [[maybe_unused]] const auto written = ::write(descriptorForHandler, &one, sizeof one);
    errno = numberBefore;
}

void handleEndSignals(void (*handler)(int)) {
    for (const int number : {SIGTERM, SIGINT, SIGHUP})
        std::signal(number, handler);
}

} // namespace

SignalWatch::SignalWatch(QObject* parent)
    : QObject(parent)
    , m_descriptor(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
    if (m_descriptor < 0)
        return;
    m_notifier = new QSocketNotifier(m_descriptor, QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &SignalWatch::read);
    descriptorForHandler = m_descriptor;
    handleEndSignals(handle);
}

SignalWatch::~SignalWatch() {
    if (m_descriptor < 0)
        return;
    handleEndSignals(SIG_DFL);
    ::close(m_descriptor);
}

void SignalWatch::read() {
    std::uint64_t count = 0;
    if (::read(m_descriptor, &count, sizeof count) > 0)
        Q_EMIT endRequested();
}

} // namespace vantel
