#pragma once

#include <chrono>
#include <ratio>

namespace vantel {

/// The clock of the snapshot format: seconds since 2001-01-01T00:00:00Z, fractions allowed, no leap seconds.
/// It has no `now()`: the current moment is always an argument (see Clock.h).
struct ReferenceClock {
    using rep = double;
    using period = std::ratio<1>;
    using duration = std::chrono::duration<double>;
    using time_point = std::chrono::time_point<ReferenceClock>;
    static constexpr bool is_steady = false;
};

using Seconds = ReferenceClock::duration;

/// An absolute point in time, without a zone. Any double is a valid value, NaN and infinities included;
/// no function of this system fails on one.
using Instant = ReferenceClock::time_point;

constexpr Instant instantFromReference(double seconds) {
    return Instant(Seconds(seconds));
}

constexpr double secondsSinceReference(Instant instant) {
    return instant.time_since_epoch().count();
}

/// 2001-01-01T00:00:00Z in seconds since 1970-01-01T00:00:00Z.
inline constexpr double referenceInUnixTime = 978'307'200;

constexpr double secondsSinceUnixEpoch(Instant instant) {
    return secondsSinceReference(instant) + referenceInUnixTime;
}

} // namespace vantel
