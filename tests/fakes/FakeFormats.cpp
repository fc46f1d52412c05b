#include "tests/fakes/FakeFormats.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace vantel::testing {

namespace {

std::string weekday(const CivilTime& time) {
    constexpr std::array names = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
    return names.at(static_cast<std::size_t>(time.weekday - 1));
}

std::string month(const CivilTime& time) {
    constexpr std::array names = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                  "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    return names.at(static_cast<std::size_t>(time.month - 1));
}

std::string twoDigits(int number) {
    return (number < 10 ? "0" : "") + std::to_string(number);
}

} // namespace

std::string PlainFormats::date(const CivilTime& time, DateFields fields) const {
    switch (fields) {
    case DateFields::weekday:
        return weekday(time);
    case DateFields::weekdayDay:
        return weekday(time) + " " + std::to_string(time.day);
    case DateFields::weekdayMonthDay:
        return weekday(time) + ", " + month(time) + " " + std::to_string(time.day);
    case DateFields::hourMinute:
        return twoDigits(time.hour) + ":" + twoDigits(time.minute);
    }
    return {};
}

std::string PlainFormats::timeLeft(Seconds left) const {
    return std::to_string(static_cast<long>(left.count())) + " s";
}

std::string PlainFormats::upperCase(std::string_view text) const {
    std::string result(text);
    std::ranges::transform(result, result.begin(),
                           [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return result;
}

} // namespace vantel::testing
