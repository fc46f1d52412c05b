#pragma once

#include "platform/Calendar.h"

#include <initializer_list>
#include <string>
#include <string_view>

namespace vantel {

/// Which fields of a moment a text shows; their order and punctuation are the language's.
enum class DateFields {
    weekday,         ///< "Fri"
    weekdayDay,      ///< "Fri 14"
    weekdayMonthDay, ///< "Wed, Nov 19"
    hourMinute       ///< "14:05", or "2:05 PM" where the clock has twelve hours
};

/// The words of the user's language and the forms of the user's region. All texts are UTF-8.
class Formats {
public:
    virtual ~Formats() = default;

    virtual std::string date(const CivilTime& time, DateFields fields) const = 0;

    /// A time span in the two largest of hours, minutes and seconds: "1 hr, 5 min", "25 min", "45 sec".
    /// A minute that has begun counts whole, so that the text agrees with the clocks on the wall; under a
    /// minute the seconds count. Nothing is left of a span that is over: "0 sec".
    virtual std::string timeLeft(Seconds left) const = 0;

    /// Unicode's upper case: "ß" gives "SS".
    virtual std::string upperCase(std::string_view text) const = 0;

    /// The translation of a text of this program; the English text is the key.
    virtual std::string translated(const char* key) const = 0;
};

/// Puts the arguments, in order, in the places that `pattern` marks with "%lld" (a number) or "%s" (a text).
/// The arguments are taken as they stand: a mark inside one means nothing.
std::string filled(std::string_view pattern, std::initializer_list<std::string_view> arguments);

} // namespace vantel
