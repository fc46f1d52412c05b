#pragma once

#include "platform/Instant.h"

namespace vantel {

/// Where the current moment comes from. Code below the programs never asks the system itself.
class Clock {
public:
    virtual ~Clock() = default;
    virtual Instant now() const = 0;
};

/// The system's real-time clock.
class SystemClock final : public Clock {
public:
    Instant now() const override;
};

/// A clock that stands still: the fake of tests, and the clock of every "as of this moment" question.
class FixedClock final : public Clock {
public:
    explicit FixedClock(Instant now)
        : m_now(now) {}
    Instant now() const override { return m_now; }

private:
    Instant m_now;
};

} // namespace vantel
