#include "widgets/WidgetFormat.h"

namespace vantel::WidgetFormat {

std::string shortDay(Instant date, const Calendar& calendar, const Formats& formats) {
    return formats.date(calendar.civilTime(date), DateFields::weekdayDay);
}

std::string time(Instant date, const Calendar& calendar, const Formats& formats) {
    return formats.date(calendar.civilTime(date), DateFields::hourMinute);
}

std::string weekday(Instant date, const Calendar& calendar, const Formats& formats) {
    return formats.date(calendar.civilTime(date), DateFields::weekday);
}

std::string weekdayMonthDay(Instant date, const Calendar& calendar, const Formats& formats) {
    return formats.date(calendar.civilTime(date), DateFields::weekdayMonthDay);
}

std::string relativeDays(Instant from, Instant to, const Calendar& calendar, const Formats& formats) {
    const std::int64_t days = calendar.daysBetween(from, to).value_or(0);
    if (days == 0)
        return formats.translated("today");
    const std::string pattern = days > 0 ? formats.translated("in %lldd") : formats.translated("%lldd");
    return filled(pattern, {std::to_string(days)});
}

} // namespace vantel::WidgetFormat
