#include "host/scene/Countdown.h"

#include <algorithm>
#include <cmath>

namespace vantel::scene {

namespace {

/// Times left are shown as the next whole unit, so the text changes when a whole number of units is left.
/// Moments so far away that single seconds are lost in them never tick.
std::optional<Instant> nextTick(Instant end, Instant now) {
    const double left = (end - now).count();
    if (!(left > 0))
        return std::nullopt;
    const double unit = left > 60 ? 60 : 1;
    for (const double fewer : {1, 2}) {
        const Instant tick = end - Seconds((std::ceil(left / unit) - fewer) * unit);
        if (tick > now)
            return tick;
    }
    return std::nullopt;
}

} // namespace

std::optional<Instant> nextTick(std::span<const Instant> countdowns, Instant now) {
    std::optional<Instant> earliest;
    for (const Instant end : countdowns)
        if (const auto tick = nextTick(end, now))
            earliest = earliest ? std::min(*earliest, *tick) : *tick;
    return earliest;
}

} // namespace vantel::scene
