#pragma once

#include "platform/SystemCalendar.h"

#include <optional>
#include <string>
#include <string_view>

namespace vantel {

/// Reads an instant as people and scripts write it: seconds since 2001-01-01T00:00:00Z ("816600000.5"), or
/// ISO 8601
/// ("2026-11-20T09:57:00+01:00", "2026-11-20T09:57", "2026-11-20"), in the calendar's zone when it names no
/// offset. Nothing for any other text, for a day or hour that does not exist in any month or day, and for a
/// number that is not finite.
std::optional<Instant> parseInstant(std::string_view text, const SystemCalendar& calendar);

/// "2026-11-20 09:57:00" on the calendar's wall clock.
std::string localText(Instant instant, const Calendar& calendar);

} // namespace vantel
