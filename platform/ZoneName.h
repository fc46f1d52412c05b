#pragma once

#include <string>

namespace vantel {

/// The name under which the time-zone database knows the user's zone: `TZ` when it is set (without its
/// leading colon; an empty one is UTC), else the zone that /etc/localtime points to, else that file itself.
/// A `TZ` that is a rule rather than a name ("CET-1CEST,M3.5.0,M10.5.0/3") gives "libc:localtime", the zone
/// that the C library makes of it.
std::string currentZoneName();

} // namespace vantel
