#pragma once

#include <optional>

#include <cctz/civil_time.h>
#include <cctz/time_zone.h>

namespace vantel {

using ZonedSeconds = cctz::time_point<cctz::seconds>;

/// When the clock of a zone reads a civil time.
struct ClockReading {
    ZonedSeconds first; ///< of several times the earliest; of none, as if the clock had not changed yet
    std::optional<ZonedSeconds> change; ///< when the clock skipped the time, if it did
};

ClockReading clockReading(const cctz::time_zone& zone, cctz::civil_second time);

} // namespace vantel
