#include "platform/Calendar.h"
#include "platform/SystemCalendar.h"
#include "tests/fakes/FakeCalendar.h"

#include <gtest/gtest.h>

namespace vantel {
namespace {

const Instant newYear2026 = instantFromReference(788918400);

const SystemCalendar utc(cctz::utc_time_zone());

TEST(Calendar, AddsDaysFirstAndThenHours) {
    EXPECT_EQ(utc.adding(0, 9, newYear2026), newYear2026 + std::chrono::hours(9));
    EXPECT_EQ(utc.adding(-2, 9, newYear2026), newYear2026 - std::chrono::hours(48 - 9));
    EXPECT_EQ(utc.adding(6, 0, newYear2026), newYear2026 + std::chrono::hours(144));
    EXPECT_EQ(utc.adding(1, -1, newYear2026), newYear2026 + std::chrono::hours(23));
}

TEST(Calendar, AddsNothingWhenItCannotAddTheDays) {
    EXPECT_FALSE(testing::CalendarWithoutArithmetic().adding(0, 9, newYear2026));
}

TEST(Calendar, CountsWeekdaysFromSunday) {
    const Instant sunday = newYear2026 + std::chrono::hours(72);
    for (int day = 0; day < 14; ++day)
        EXPECT_EQ(utc.weekday(sunday + std::chrono::hours(24 * day)), day % 7 + 1);
}

TEST(Calendar, TellsTheHour) {
    EXPECT_EQ(utc.hour(newYear2026), 0);
    EXPECT_EQ(utc.hour(newYear2026 - Seconds(0.001)), 23);
    EXPECT_EQ(utc.hour(newYear2026 + Seconds(15 * 3600 - 0.001)), 14);
    EXPECT_EQ(utc.hour(newYear2026 + Seconds(15 * 3600)), 15);
}

TEST(Calendar, ADayReachesFromItsFirstInstantToTheNextDays) {
    EXPECT_TRUE(utc.isSameDay(newYear2026, newYear2026 + Seconds(86'399.999)));
    EXPECT_FALSE(utc.isSameDay(newYear2026, newYear2026 + Seconds(86'400)));
    EXPECT_FALSE(utc.isSameDay(newYear2026, newYear2026 - Seconds(0.001)));
}

} // namespace
} // namespace vantel
