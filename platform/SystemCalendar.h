#pragma once

#include "platform/Calendar.h"

#include <string>

#include <cctz/time_zone.h>

namespace vantel {

/// A calendar in a zone of the system's time-zone database. A cheap value; safe to use from any thread.
class SystemCalendar final : public Calendar {
public:
    explicit SystemCalendar(cctz::time_zone zone)
        : m_zone(zone) {}

    /// The calendar of a zone ("Europe/Berlin"); absent when the database does not know the name.
    static std::optional<SystemCalendar> named(const std::string& zoneName);

    /// The user's calendar now: of `TZ`, else of the system's zone, else of UTC. Reads the environment and
    /// the system's setting on each call, so a change is seen at once.
    static SystemCalendar current();

    Instant startOfDay(Instant instant) const override;
    std::optional<Instant> addingDays(int days, Instant instant) const override;
    CivilTime civilTime(Instant instant) const override;
    std::optional<std::int64_t> daysBetween(Instant from, Instant to) const override;
    std::optional<Instant> date(std::int64_t year, int month, int day, int hour) const override;

    /// The instant at which the wall clock reads that time; the weekday is not looked at. Read as `date`
    /// does.
    std::optional<Instant> instant(const CivilTime& time) const;

    std::string zoneName() const { return m_zone.name(); }

private:
    cctz::civil_second civilSecond(Instant instant) const;
    cctz::civil_day civilDay(Instant instant) const;
    Instant startOf(cctz::civil_day day) const;
    Instant at(cctz::civil_second time) const;

    cctz::time_zone m_zone;
};

} // namespace vantel
