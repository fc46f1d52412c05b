#include "host/app/SignalWatch.h"

#include <QSocketNotifier>
#include <csignal>

#include <sys/signalfd.h>
#include <unistd.h>

namespace vantel {

namespace {

sigset_t endSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int number : {SIGTERM, SIGINT, SIGHUP})
        sigaddset(&signals, number);
    return signals;
}

int openSignals() {
    const sigset_t signals = endSignals();
    ::pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    return ::signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK);
}

} // namespace

SignalWatch::SignalWatch(QObject* parent)
    : QObject(parent)
    , m_descriptor(openSignals()) {
    if (m_descriptor < 0)
        return;
    m_notifier = new QSocketNotifier(m_descriptor, QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &SignalWatch::read);
}

SignalWatch::~SignalWatch() {
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

void SignalWatch::read() {
    signalfd_siginfo signal{};
    if (::read(m_descriptor, &signal, sizeof signal) > 0)
        Q_EMIT endRequested();
}

} // namespace vantel
