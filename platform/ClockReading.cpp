#include "platform/ClockReading.h"

namespace vantel {

namespace {

cctz::seconds offsetAt(const cctz::time_zone& zone, ZonedSeconds instant) {
    return cctz::seconds(zone.lookup(instant).offset);
}

/// The first instant after `from` at which the offset is another one, as it is known to be at `until`.
ZonedSeconds changeBetween(const cctz::time_zone& zone, ZonedSeconds from, ZonedSeconds until) {
    const cctz::seconds before = offsetAt(zone, from);
    while (until - from > cctz::seconds(1)) {
        const ZonedSeconds middle = from + (until - from) / 2;
        (offsetAt(zone, middle) == before ? from : until) = middle;
    }
    return until;
}

/// Of the zones that the C library keeps, the offset at an instant is known and nothing else is reliable.
ClockReading searchedReading(const cctz::time_zone& zone, cctz::civil_second time) {
    constexpr std::chrono::hours farthestOffset(26);
    const ZonedSeconds universal = cctz::convert(time, cctz::utc_time_zone());
    const ZonedSeconds from = universal - farthestOffset;
    const ZonedSeconds until = universal + farthestOffset;
    const ZonedSeconds before = universal - offsetAt(zone, from);
    const ZonedSeconds after = universal - offsetAt(zone, until);
    if (before == after)
        return {.first = before, .change = std::nullopt};
    const ZonedSeconds change = changeBetween(zone, from, until);
    if (before < change)
        return {.first = before, .change = std::nullopt};
    if (after >= change)
        return {.first = after, .change = std::nullopt};
    return {.first = before, .change = change};
}

} // namespace

ClockReading clockReading(const cctz::time_zone& zone, cctz::civil_second time) {
    if (zone.name().starts_with("libc:"))
        return searchedReading(zone, time);
    const auto found = zone.lookup(time);
    if (found.kind == cctz::time_zone::civil_lookup::SKIPPED)
        return {.first = found.pre, .change = found.trans};
    return {.first = found.pre, .change = std::nullopt};
}

} // namespace vantel
