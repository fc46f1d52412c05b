#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QThread>

namespace vantel::testing {

/// Serves events until a condition holds, for ten seconds at most. Whether it holds.
template <typename Condition>
bool waitUntil(Condition condition) {
    const QDeadlineTimer deadline(10'000);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        QThread::msleep(1);
    }
    return true;
}

/// Serves what is waiting to be served.
inline void serveEvents() {
    for (int round = 0; round < 3; ++round)
        QCoreApplication::processEvents();
}

} // namespace vantel::testing
