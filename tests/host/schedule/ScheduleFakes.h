#pragma once

#include "host/schedule/Alarm.h"
#include "platform/Clock.h"

namespace vantel::testing {

/// A clock that a test sets, and that counts who looks at it.
class HandClock final : public Clock {
public:
    Instant now() const override { return instantFromReference(seconds + drift * ++reads); }

    double seconds = 1000;
    double drift = 0; ///< how far every look moves it on, as a real clock does
    mutable int reads = 0;
};

/// An alarm that goes off when a test says so. Counts the changes of its moment.
class HandAlarm final : public Alarm {
    Q_OBJECT

public:
    using Alarm::Alarm;

    void wakeAt(std::optional<Instant> newMoment) override {
        if (newMoment != moment)
            ++changes;
        moment = newMoment;
    }

    /// The moment set, in seconds; -1 for none.
    double seconds() const { return moment ? secondsSinceReference(*moment) : -1; }

    /// Moves the clock to the moment that is set, and goes off.
    void goOff(HandClock& clock) {
        clock.seconds = seconds();
        goOffLate();
    }

    /// Goes off at a moment that is over already.
    void goOffLate() {
        moment.reset();
        Q_EMIT reached();
    }

    /// Sets the clock as a user does.
    void step(HandClock& clock, double newSeconds) {
        clock.seconds = newSeconds;
        moment.reset();
        Q_EMIT clockStepped();
    }

    std::optional<Instant> moment;
    int changes = 0;
};

} // namespace vantel::testing
