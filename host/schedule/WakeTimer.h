#pragma once

#include "host/schedule/Alarm.h"

#include <cstdint>

class QSocketNotifier;

namespace vantel {

/// The alarm of the running program: one timer of the kernel on the real-time clock. It is right across
/// suspend, hears of every step of the clock even while nothing is set, and while idle causes no wake-up.
class WakeTimer final : public Alarm {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(WakeTimer)

public:
    explicit WakeTimer(QObject* parent = nullptr);
    ~WakeTimer() override;

    /// A moment beyond the year 2200, or one that is no number, counts as none.
    void wakeAt(std::optional<Instant> moment) override;

private:
    void arm(std::int64_t nanoseconds);
    void read();
    void tellStep();

    int m_descriptor;
    std::int64_t m_armed = 0; ///< nanoseconds since 1970; 0 for none
    QSocketNotifier* m_notifier = nullptr;
};

/// Nanoseconds from 1970 to a moment, rounded up, so that the moment has come when the timer fires; at least
/// 1. Zero, which stands for none, where the moment is beyond the year 2200 or no number.
std::int64_t timerNanoseconds(Instant moment);

} // namespace vantel
