#pragma once

#include "platform/SystemCalendar.h"

namespace vantel::testing {

/// A calendar in UTC that cannot add days and makes no dates, for the fallbacks.
class CalendarWithoutArithmetic final : public Calendar {
public:
    Instant startOfDay(Instant instant) const override { return m_utc.startOfDay(instant); }
    std::optional<Instant> addingDays(int, Instant) const override { return std::nullopt; }
    CivilTime civilTime(Instant instant) const override { return m_utc.civilTime(instant); }
    std::optional<std::int64_t> daysBetween(Instant, Instant) const override { return std::nullopt; }
    std::optional<Instant> date(std::int64_t, int, int, int) const override { return std::nullopt; }

private:
    SystemCalendar m_utc{cctz::utc_time_zone()};
};

} // namespace vantel::testing
