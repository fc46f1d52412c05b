#include "platform/SystemCalendar.h"

#include "platform/ClockReading.h"
#include "platform/ZoneName.h"

#include <algorithm>
#include <cmath>

namespace vantel {

namespace {

/// Some 300,000 years: far beyond any date with a meaning, and far from every overflow.
constexpr double calendarRange = 1e13;

bool isInRange(Instant instant) {
    return std::abs(secondsSinceUnixEpoch(instant)) <= calendarRange;
}

ZonedSeconds zonedSeconds(Instant instant) {
    const double seconds = std::floor(secondsSinceReference(instant)) + referenceInUnixTime;
    const double inRange = std::isnan(seconds) ? 0 : std::clamp(seconds, -calendarRange, calendarRange);
    return ZonedSeconds(cctz::seconds(static_cast<std::int64_t>(inRange)));
}

Instant instantFrom(ZonedSeconds time) {
    return instantFromReference(static_cast<double>(time.time_since_epoch().count()) - referenceInUnixTime);
}

double fractionOfSecond(Instant instant) {
    const double seconds = secondsSinceReference(instant);
    return seconds - std::floor(seconds);
}

int weekdayNumber(cctz::civil_day day) {
    const int daysSinceMonday = static_cast<int>(cctz::get_weekday(day));
    return (daysSinceMonday + 1) % 7 + 1;
}

} // namespace

std::optional<SystemCalendar> SystemCalendar::named(const std::string& zoneName) {
    cctz::time_zone zone;
    if (!cctz::load_time_zone(zoneName, &zone))
        return std::nullopt;
    return SystemCalendar(zone);
}

SystemCalendar SystemCalendar::current() {
    return named(currentZoneName()).value_or(SystemCalendar(cctz::utc_time_zone()));
}

Instant SystemCalendar::startOfDay(Instant instant) const {
    return isInRange(instant) ? startOf(civilDay(instant)) : instant;
}

std::optional<Instant> SystemCalendar::addingDays(int days, Instant instant) const {
    if (!isInRange(instant))
        return std::nullopt;
    if (days == 0)
        return instant;
    const cctz::civil_second time = civilSecond(instant);
    const cctz::civil_day day(time);
    if (instant == startOf(day))
        return startOf(day + days);
    const cctz::civil_second later = time + (cctz::civil_second(day + days) - cctz::civil_second(day));
    return at(later) + Seconds(fractionOfSecond(instant));
}

CivilTime SystemCalendar::civilTime(Instant instant) const {
    const cctz::civil_second time = civilSecond(instant);
    return {.year = time.year(),
            .month = time.month(),
            .day = time.day(),
            .hour = time.hour(),
            .minute = time.minute(),
            .second = time.second(),
            .weekday = weekdayNumber(cctz::civil_day(time))};
}

std::optional<std::int64_t> SystemCalendar::daysBetween(Instant from, Instant to) const {
    if (!isInRange(from) || !isInRange(to))
        return std::nullopt;
    return civilDay(to) - civilDay(from);
}

std::optional<Instant> SystemCalendar::date(std::int64_t year, int month, int day, int hour) const {
    return instant(
        {.year = year, .month = month, .day = day, .hour = hour, .minute = 0, .second = 0, .weekday = 0});
}

std::optional<Instant> SystemCalendar::instant(const CivilTime& time) const {
    constexpr std::int64_t lastYear = 300'000;
    if (time.year < -lastYear || time.year > lastYear)
        return std::nullopt;
    return at(cctz::civil_second(time.year, time.month, time.day, time.hour, time.minute, time.second));
}

cctz::civil_second SystemCalendar::civilSecond(Instant instant) const {
    return cctz::convert(zonedSeconds(instant), m_zone);
}

cctz::civil_day SystemCalendar::civilDay(Instant instant) const {
    const cctz::civil_day date(civilSecond(instant));
    return startOf(date + 1) <= instant ? date + 1 : date;
}

Instant SystemCalendar::startOf(cctz::civil_day day) const {
    const ClockReading midnight = clockReading(m_zone, cctz::civil_second(day));
    return instantFrom(midnight.change.value_or(midnight.first));
}

Instant SystemCalendar::at(cctz::civil_second time) const {
    return instantFrom(clockReading(m_zone, time).first);
}

} // namespace vantel
