#pragma once

#include "platform/Calendar.h"
#include "platform/Formats.h"

#include <string>

/// How the widgets write dates, in the calendar's zone and the formats' language.
namespace vantel::WidgetFormat {

/// "Fri 14"
std::string shortDay(Instant date, const Calendar& calendar, const Formats& formats);

/// "14:05", or "2:05 PM" where the clock has twelve hours
std::string time(Instant date, const Calendar& calendar, const Formats& formats);

/// "Fri"
std::string weekday(Instant date, const Calendar& calendar, const Formats& formats);

/// "Wed, Nov 19"
std::string weekdayMonthDay(Instant date, const Calendar& calendar, const Formats& formats);

/// "today", "in 3d", "-2d": always a count of civil days, never "tomorrow" or "yesterday".
std::string relativeDays(Instant from, Instant to, const Calendar& calendar, const Formats& formats);

} // namespace vantel::WidgetFormat
