#pragma once

#include "platform/Instant.h"

#include <cstdint>
#include <optional>

namespace vantel {

/// An instant as the clock on the wall and the calendar beside it show it.
struct CivilTime {
    std::int64_t year; ///< proleptic Gregorian, astronomical numbering
    int month;         ///< 1 to 12
    int day;           ///< 1 to 31
    int hour;          ///< 0 to 23
    int minute;        ///< 0 to 59
    int second;        ///< 0 to 59
    int weekday;       ///< 1 = Sunday to 7 = Saturday

    bool operator==(const CivilTime&) const = default;
};

/// The Gregorian calendar in one time zone. Days are civil days: they may have 22 to 25 hours, begin at
/// 01:00, or not exist at all. A day begins with the first instant that bears its date and lasts until the
/// next one begins: a clock that goes back over midnight does not bring yesterday back, so that time never
/// runs into a midnight twice. Every instant is accepted; beyond some 300,000 years the calendar does no
/// arithmetic.
class Calendar {
public:
    virtual ~Calendar() = default;

    /// The first instant of the day that contains the given one (of two midnights the first); never after it.
    virtual Instant startOfDay(Instant instant) const = 0;

    /// The same time of day some civil days later; the start of a day leads to the start of a day, a later
    /// one for a positive number of days. Absent when the calendar cannot tell.
    virtual std::optional<Instant> addingDays(int days, Instant instant) const = 0;

    virtual CivilTime civilTime(Instant instant) const = 0;

    /// Civil days from the day of one instant to the day of another; negative into the past.
    virtual std::optional<std::int64_t> daysBetween(Instant from, Instant to) const = 0;

    /// The instant at which the wall clock reads that hour of that day. An hour that a change of the clock
    /// skips is read as if the clock had not changed yet.
    virtual std::optional<Instant> date(std::int64_t year, int month, int day, int hour) const = 0;

    /// Civil days first, then hours of 3,600 seconds.
    std::optional<Instant> adding(int days, int hours, Instant instant) const;

    int weekday(Instant instant) const { return civilTime(instant).weekday; }
    int hour(Instant instant) const { return civilTime(instant).hour; }
    bool isSameDay(Instant a, Instant b) const { return startOfDay(a) == startOfDay(b); }
};

} // namespace vantel
