#include "platform/InstantText.h"

#include <charconv>
#include <cmath>

namespace vantel {

namespace {

std::optional<double> parseNumber(std::string_view text) {
    double value = 0;
    const char* end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, value);
    if (result.ec != std::errc() || result.ptr != end || !std::isfinite(value))
        return std::nullopt;
    return value;
}

/// Takes the parts of a fixed form off the front of a text, one by one.
class Scanner {
public:
    explicit Scanner(std::string_view text)
        : m_rest(text) {}

    bool take(char expected) {
        if (!m_rest.starts_with(expected))
            return false;
        m_rest.remove_prefix(1);
        return true;
    }

    std::optional<int> digits(std::size_t count) {
        const std::string_view taken = m_rest.substr(0, count);
        if (taken.size() != count || taken.find_first_not_of("0123456789") != std::string_view::npos)
            return std::nullopt;
        int value = 0;
        std::from_chars(taken.data(), taken.data() + count, value);
        m_rest.remove_prefix(count);
        return value;
    }

    double fraction() {
        const std::size_t count = std::min(m_rest.find_first_not_of("0123456789"), m_rest.size());
        const double value = parseNumber("0." + std::string(m_rest.substr(0, count))).value_or(0);
        m_rest.remove_prefix(count);
        return value;
    }

    bool isAtEnd() const { return m_rest.empty(); }
    char next() const { return m_rest.empty() ? '\0' : m_rest.front(); }

private:
    std::string_view m_rest;
};

struct ParsedTime {
    CivilTime civil;
    double fraction = 0;
    std::optional<Seconds> offset = std::nullopt;
};

bool exists(const CivilTime& time) {
    const std::chrono::year_month_day day{std::chrono::year(static_cast<int>(time.year)),
                                          std::chrono::month(static_cast<unsigned>(time.month)),
                                          std::chrono::day(static_cast<unsigned>(time.day))};
    return day.ok() && time.hour < 24 && time.minute < 60 && time.second < 60;
}

bool takeDate(Scanner& scanner, CivilTime& civil) {
    const auto year = scanner.digits(4);
    const bool hasMonth = year && scanner.take('-');
    const auto month = hasMonth ? scanner.digits(2) : std::nullopt;
    const bool hasDay = month && scanner.take('-');
    const auto day = hasDay ? scanner.digits(2) : std::nullopt;
    if (!day)
        return false;
    civil = {.year = *year, .month = *month, .day = *day, .hour = 0, .minute = 0, .second = 0, .weekday = 0};
    return true;
}

bool takeTime(Scanner& scanner, ParsedTime& parsed) {
    const auto hour = scanner.digits(2);
    const bool hasMinute = hour && scanner.take(':');
    const auto minute = hasMinute ? scanner.digits(2) : std::nullopt;
    if (!minute)
        return false;
    parsed.civil.hour = *hour;
    parsed.civil.minute = *minute;
    if (!scanner.take(':'))
        return true;
    const auto second = scanner.digits(2);
    parsed.civil.second = second.value_or(0);
    if (second && scanner.take('.'))
        parsed.fraction = scanner.fraction();
    return second.has_value();
}

bool takeOffset(Scanner& scanner, ParsedTime& parsed) {
    if (scanner.isAtEnd())
        return true;
    parsed.offset = Seconds(0);
    if (scanner.take('Z'))
        return scanner.isAtEnd();
    const int sign = scanner.next() == '-' ? -1 : 1;
    if (!scanner.take('-') && !scanner.take('+'))
        return false;
    const auto hours = scanner.digits(2);
    scanner.take(':');
    const auto minutes = scanner.isAtEnd() ? std::optional(0) : scanner.digits(2);
    if (!hours || !minutes || *hours > 23 || *minutes > 59 || !scanner.isAtEnd())
        return false;
    parsed.offset = Seconds(sign * (*hours * 3600 + *minutes * 60));
    return true;
}

std::optional<ParsedTime> parseIso8601(std::string_view text) {
    Scanner scanner(text);
    ParsedTime parsed;
    if (!takeDate(scanner, parsed.civil))
        return std::nullopt;
    if (scanner.isAtEnd())
        return exists(parsed.civil) ? std::optional(parsed) : std::nullopt;
    if (!scanner.take('T') && !scanner.take(' '))
        return std::nullopt;
    if (!takeTime(scanner, parsed) || !takeOffset(scanner, parsed) || !exists(parsed.civil))
        return std::nullopt;
    return parsed;
}

std::string twoDigits(int number) {
    return (number < 10 ? "0" : "") + std::to_string(number);
}

} // namespace

std::optional<Instant> parseInstant(std::string_view text, const SystemCalendar& calendar) {
    if (const auto seconds = parseNumber(text))
        return instantFromReference(*seconds);
    const auto parsed = parseIso8601(text);
    if (!parsed)
        return std::nullopt;
    const SystemCalendar zone = parsed->offset ? SystemCalendar(cctz::utc_time_zone()) : calendar;
    const auto whole = zone.instant(parsed->civil);
    if (!whole)
        return std::nullopt;
    return *whole - parsed->offset.value_or(Seconds(0)) + Seconds(parsed->fraction);
}

std::string localText(Instant instant, const Calendar& calendar) {
    const CivilTime time = calendar.civilTime(instant);
    return std::to_string(time.year) + "-" + twoDigits(time.month) + "-" + twoDigits(time.day) + " " +
           twoDigits(time.hour) + ":" + twoDigits(time.minute) + ":" + twoDigits(time.second);
}

} // namespace vantel
