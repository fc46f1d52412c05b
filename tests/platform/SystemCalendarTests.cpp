#include "platform/SystemCalendar.h"
#include "tests/fakes/ScopedEnvironment.h"
#include "tests/fakes/ZoneOffsets.h"

#include <limits>

#include <gtest/gtest.h>

namespace vantel {
namespace {

using testing::ScopedEnvironment;
using testing::ZoneOffsets;

SystemCalendar calendarOf(const std::string& zone) {
    return SystemCalendar::named(zone).value();
}

/// A moment of universal time.
Instant utc(int year, int month, int day, int hour = 0, int minute = 0, double second = 0) {
    const Instant date = *SystemCalendar(cctz::utc_time_zone()).date(year, month, day, hour);
    return date + Seconds(minute * 60 + second);
}

/// A day's beginning and length, as a calendar sees them from an instant in it.
struct Day {
    Instant start;
    double hours;

    bool operator==(const Day&) const = default;

    friend void PrintTo(const Day& day, std::ostream* stream) {
        *stream << day.hours << " hours from " << secondsSinceReference(day.start);
    }
};

Day dayAround(const SystemCalendar& calendar, Instant instant) {
    const Instant start = calendar.startOfDay(instant);
    const Instant next = calendar.addingDays(1, start).value();
    return {.start = start, .hours = (next - start).count() / 3600};
}

TEST(SystemCalendar, KnowsTheNamesOfTheDatabase) {
    EXPECT_TRUE(SystemCalendar::named("Europe/Berlin"));
    EXPECT_TRUE(SystemCalendar::named("UTC"));
    for (const char* name : {"Europe/Atlantis", "europe", "Europe/", "Europe", "../../../etc/passwd",
                             "/etc/passwd", "/", "zone1970.tab"})
        EXPECT_FALSE(SystemCalendar::named(name)) << name;
}

TEST(SystemCalendar, OrdinaryDaysHave24Hours) {
    EXPECT_EQ(dayAround(calendarOf("Europe/Berlin"), utc(2026, 1, 1, 12)), (Day{utc(2025, 12, 31, 23), 24}));
    EXPECT_EQ(dayAround(calendarOf("UTC"), utc(2026, 1, 1)), (Day{utc(2026, 1, 1), 24}));
}

TEST(SystemCalendar, DaysOfAChangeHave23Or25Hours) {
    const auto berlin = calendarOf("Europe/Berlin");
    EXPECT_EQ(dayAround(berlin, utc(2024, 3, 31, 12)), (Day{utc(2024, 3, 30, 23), 23}));
    EXPECT_EQ(dayAround(berlin, utc(2024, 10, 27, 12)), (Day{utc(2024, 10, 26, 22), 25}));
}

TEST(SystemCalendar, ADayWithoutMidnightBeginsAtOne) {
    EXPECT_EQ(dayAround(calendarOf("Asia/Beirut"), utc(2024, 3, 31, 12)), (Day{utc(2024, 3, 30, 22), 23}));
    EXPECT_EQ(calendarOf("Asia/Beirut").hour(utc(2024, 3, 30, 22)), 1);
    EXPECT_EQ(dayAround(calendarOf("Africa/Cairo"), utc(2024, 4, 26, 12)), (Day{utc(2024, 4, 25, 22), 23}));
    EXPECT_EQ(calendarOf("Africa/Cairo").hour(utc(2024, 4, 25, 22)), 1);
    EXPECT_EQ(dayAround(calendarOf("America/Santiago"), utc(2024, 9, 8, 12)), (Day{utc(2024, 9, 8, 4), 23}));
    EXPECT_EQ(calendarOf("America/Santiago").hour(utc(2024, 9, 8, 4)), 1);
}

TEST(SystemCalendar, ADayWhoseMidnightIsSkippedWithTheEveningBeforeBeginsWhereTheClockGoesOn) {
    const auto toronto = calendarOf("America/Toronto");
    EXPECT_EQ(dayAround(toronto, utc(1919, 3, 31, 12)), (Day{utc(1919, 3, 31, 4, 30), 23.5}));
    EXPECT_EQ(toronto.civilTime(utc(1919, 3, 31, 4, 30)).minute, 30);
}

TEST(SystemCalendar, TheDayBeforeADayWithoutMidnightEndsWhereThatBegins) {
    EXPECT_EQ(dayAround(calendarOf("Asia/Beirut"), utc(2024, 3, 30, 12)), (Day{utc(2024, 3, 29, 22), 24}));
}

TEST(SystemCalendar, AClockThatGoesBackAtTheEndOfADayMakesItLonger) {
    EXPECT_EQ(dayAround(calendarOf("Africa/Cairo"), utc(2024, 10, 31, 12)), (Day{utc(2024, 10, 30, 21), 25}));
    EXPECT_EQ(dayAround(calendarOf("America/Santiago"), utc(2024, 4, 6, 12)), (Day{utc(2024, 4, 6, 3), 25}));
}

TEST(SystemCalendar, OfTwoMidnightsTheFirstBeginsTheDay) {
    const auto havana = calendarOf("America/Havana");
    EXPECT_EQ(dayAround(havana, utc(2024, 11, 3, 12)), (Day{utc(2024, 11, 3, 4), 25}));
    EXPECT_EQ(havana.hour(utc(2024, 11, 3, 4)), 0);
    EXPECT_EQ(havana.hour(utc(2024, 11, 3, 5)), 0);
    EXPECT_EQ(havana.startOfDay(utc(2024, 11, 3, 5)), utc(2024, 11, 3, 4));
}

TEST(SystemCalendar, ADayThatDoesNotExistIsSkipped) {
    const auto apia = calendarOf("Pacific/Apia");
    EXPECT_EQ(dayAround(apia, utc(2011, 12, 30, 9, 59)), (Day{utc(2011, 12, 29, 10), 24}));
    EXPECT_EQ(dayAround(apia, utc(2011, 12, 30, 10)), (Day{utc(2011, 12, 30, 10), 24}));
    EXPECT_EQ(apia.civilTime(utc(2011, 12, 30, 10)).day, 31);
    EXPECT_EQ(apia.daysBetween(utc(2011, 12, 30, 9), utc(2011, 12, 30, 11)), 2);
    EXPECT_FALSE(apia.isSameDay(utc(2011, 12, 30, 9), utc(2011, 12, 30, 11)));
}

TEST(SystemCalendar, ChangesNeedNotBeWholeHours) {
    EXPECT_EQ(dayAround(calendarOf("Australia/Lord_Howe"), utc(2024, 10, 6)),
              (Day{utc(2024, 10, 5, 13, 30), 23.5}));
    EXPECT_EQ(dayAround(calendarOf("Australia/Lord_Howe"), utc(2024, 4, 7)),
              (Day{utc(2024, 4, 6, 13), 24.5}));
    EXPECT_EQ(dayAround(calendarOf("Antarctica/Troll"), utc(2024, 3, 31, 12)), (Day{utc(2024, 3, 31), 22}));
    EXPECT_EQ(dayAround(calendarOf("Antarctica/Troll"), utc(2024, 10, 27, 12)),
              (Day{utc(2024, 10, 26, 22), 26}));
}

TEST(SystemCalendar, OffsetsNeedNotBeWholeHours) {
    EXPECT_EQ(dayAround(calendarOf("Asia/Kathmandu"), utc(2024, 1, 1, 18, 15)),
              (Day{utc(2024, 1, 1, 18, 15), 24}));
    EXPECT_EQ(dayAround(calendarOf("Asia/Kathmandu"), utc(2024, 1, 1, 18, 14)),
              (Day{utc(2023, 12, 31, 18, 15), 24}));
    EXPECT_EQ(dayAround(calendarOf("Pacific/Chatham"), utc(2024, 1, 1)),
              (Day{utc(2023, 12, 31, 10, 15), 24}));
}

TEST(SystemCalendar, AClockThatGoesBackOverMidnightDoesNotBringYesterdayBack) {
    const auto saintJohns = calendarOf("America/St_Johns");
    const Instant midnight = utc(2010, 11, 7, 2, 30);
    EXPECT_EQ(saintJohns.civilTime(midnight + Seconds(60)).hour, 23);
    EXPECT_EQ(saintJohns.civilTime(midnight + Seconds(60)).day, 6);
    for (const double later : {0.0, 59.0, 60.0, 1800.0, 3599.0, 3600.0, 7200.0})
        EXPECT_EQ(dayAround(saintJohns, midnight + Seconds(later)), (Day{midnight, 25})) << later;
    EXPECT_EQ(dayAround(saintJohns, midnight - Seconds(1)), (Day{utc(2010, 11, 6, 2, 30), 24}));
    EXPECT_EQ(saintJohns.daysBetween(midnight - Seconds(1), midnight + Seconds(1800)), 1);
    EXPECT_EQ(saintJohns.daysBetween(midnight, midnight + Seconds(1800)), 0);
    EXPECT_TRUE(saintJohns.isSameDay(midnight, midnight + Seconds(1800)));
}

TEST(SystemCalendar, AClockMayGoBackOverMidnightByHours) {
    const auto casey = calendarOf("Antarctica/Casey");
    const Instant midnight = utc(2010, 3, 4, 13);
    EXPECT_EQ(casey.civilTime(midnight + std::chrono::hours(2)).day, 4);
    EXPECT_EQ(dayAround(casey, midnight + std::chrono::hours(2)), (Day{midnight, 27}));
}

TEST(SystemCalendar, CairoAndMexicoCityFollowTheRulesOfTheSystem) {
    const ScopedEnvironment restored("TZ", std::nullopt);
    constexpr std::int64_t july2026 = 1'782'864'000;
    constexpr std::int64_t day = 86'400;
    for (const std::string zone : {"Africa/Cairo", "America/Mexico_City"}) {
        const auto calendar = calendarOf(zone);
        const ZoneOffsets offsets(zone, july2026 - 10 * day, july2026 + 50 * day);
        for (std::int64_t time = july2026; time < july2026 + 31 * day; time += 3600) {
            const Instant instant = instantFromReference(static_cast<double>(time) - referenceInUnixTime);
            EXPECT_EQ(secondsSinceUnixEpoch(calendar.startOfDay(instant)),
                      static_cast<double>(offsets.startOfDay(time)));
        }
    }
}

TEST(SystemCalendar, StartOfDayIsNeverAfterTheInstant) {
    const auto calendar = calendarOf("UTC");
    for (const double seconds : {-1e-20, -1e-10, -1e-6, -0.5, 86'400 - 1e-9, -86'400 - 1e-9}) {
        const Instant instant = instantFromReference(seconds);
        EXPECT_LE(calendar.startOfDay(instant), instant) << seconds;
        EXPECT_GT(*calendar.addingDays(1, calendar.startOfDay(instant)), instant) << seconds;
    }
    EXPECT_EQ(calendar.civilTime(instantFromReference(-1e-10)).year, 2000);
}

TEST(SystemCalendar, CivilTimeTellsEveryField) {
    EXPECT_EQ(calendarOf("Asia/Kathmandu").civilTime(utc(2026, 11, 13, 22, 20, 30.75)),
              (CivilTime{
                  .year = 2026, .month = 11, .day = 14, .hour = 4, .minute = 5, .second = 30, .weekday = 7}));
    EXPECT_EQ(
        calendarOf("UTC").civilTime(instantFromReference(0)),
        (CivilTime{.year = 2001, .month = 1, .day = 1, .hour = 0, .minute = 0, .second = 0, .weekday = 2}));
}

TEST(SystemCalendar, AddingDaysKeepsTheTimeOfDay) {
    const auto berlin = calendarOf("Europe/Berlin");
    EXPECT_EQ(berlin.addingDays(1, utc(2024, 3, 30, 8, 15, 0.25)), utc(2024, 3, 31, 7, 15, 0.25));
    EXPECT_EQ(berlin.addingDays(-1, utc(2024, 3, 31, 7)), utc(2024, 3, 30, 8));
    EXPECT_EQ(berlin.addingDays(366, utc(2024, 2, 29, 12)), utc(2025, 3, 1, 12));
}

TEST(SystemCalendar, AddingDaysReadsASkippedTimeAsIfTheClockHadNotChangedYet) {
    EXPECT_EQ(calendarOf("Europe/Berlin").addingDays(1, utc(2024, 3, 30, 1, 30)), utc(2024, 3, 31, 1, 30));
}

TEST(SystemCalendar, AddingDaysLeadsFromStartToStart) {
    const auto beirut = calendarOf("Asia/Beirut");
    EXPECT_EQ(beirut.addingDays(1, utc(2024, 3, 29, 22)), utc(2024, 3, 30, 22));
    EXPECT_EQ(beirut.addingDays(1, utc(2024, 3, 30, 22)), utc(2024, 3, 31, 21));
    EXPECT_EQ(beirut.addingDays(-1, utc(2024, 3, 31, 21)), utc(2024, 3, 30, 22));
    EXPECT_EQ(calendarOf("Pacific/Apia").addingDays(2, utc(2011, 12, 29, 10)), utc(2011, 12, 30, 10));
}

TEST(SystemCalendar, AddingNoDaysChangesNothing) {
    const auto berlin = calendarOf("Europe/Berlin");
    for (const Instant instant :
         {utc(2024, 10, 27, 0, 30), utc(2024, 10, 27, 1, 30), utc(2024, 6, 1, 3, 4, 5.5)})
        EXPECT_EQ(berlin.addingDays(0, instant), instant);
}

TEST(SystemCalendar, CountsCivilDaysBetween) {
    const auto berlin = calendarOf("Europe/Berlin");
    EXPECT_EQ(berlin.daysBetween(utc(2024, 3, 30, 22, 59), utc(2024, 3, 30, 23)), 1);
    EXPECT_EQ(berlin.daysBetween(utc(2024, 3, 30, 23), utc(2024, 3, 31, 21)), 0);
    EXPECT_EQ(berlin.daysBetween(utc(2025, 1, 1), utc(2024, 1, 1)), -366);
}

TEST(SystemCalendar, MakesDates) {
    const auto berlin = calendarOf("Europe/Berlin");
    EXPECT_EQ(berlin.date(2024, 7, 1, 9), utc(2024, 7, 1, 7));
    EXPECT_EQ(berlin.date(2024, 3, 31, 2), utc(2024, 3, 31, 1)) << "skipped";
    EXPECT_EQ(berlin.date(2024, 10, 27, 2), utc(2024, 10, 27, 0)) << "twice";
    EXPECT_EQ(berlin.date(-300'000, 1, 1, 0).has_value(), true);
    EXPECT_FALSE(berlin.date(300'001, 1, 1, 0));
    EXPECT_FALSE(berlin.date(std::numeric_limits<std::int64_t>::max(), 1, 1, 0));
    EXPECT_FALSE(berlin.date(std::numeric_limits<std::int64_t>::min(), 1, 1, 0));
}

class ExtremeInstants : public ::testing::TestWithParam<double> {};

TEST_P(ExtremeInstants, HaveADayThatHoldsThem) {
    for (const char* zone : {"UTC", "Europe/Berlin", "Pacific/Apia", "America/St_Johns"}) {
        const auto calendar = calendarOf(zone);
        const Instant instant = instantFromReference(GetParam());
        const Instant start = calendar.startOfDay(instant);
        EXPECT_FALSE(start > instant);
        const CivilTime time = calendar.civilTime(instant);
        EXPECT_TRUE(time.weekday >= 1 && time.weekday <= 7 && time.month >= 1 && time.month <= 12);
        EXPECT_EQ(calendar.daysBetween(instant, instant).value_or(0), 0);
        for (const int days : {-1, 1, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
            const auto later = calendar.addingDays(days, instant);
            EXPECT_TRUE(!later || (*later > instant) == (days > 0)) << days;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(SystemCalendar, ExtremeInstants,
                         ::testing::Values(1e300, -1e300, 1e22, 9.3e18, -9.3e18, 1e13, -1e13,
                                           9'999'999'999'999.0, -9'999'999'999'999.0, 5e12, -5e12, 1e10,
                                           -1e11, 0.0, -0.0, 5e-324, std::numeric_limits<double>::infinity(),
                                           -std::numeric_limits<double>::infinity(),
                                           std::numeric_limits<double>::quiet_NaN()));

TEST(SystemCalendar, InstantsBeyondItsRangeAreTheirOwnDay) {
    const auto calendar = calendarOf("Europe/Berlin");
    const Instant instant = instantFromReference(1e300);
    EXPECT_EQ(calendar.startOfDay(instant), instant);
    EXPECT_FALSE(calendar.addingDays(1, instant));
    EXPECT_FALSE(calendar.daysBetween(instant, instant));
    EXPECT_FALSE(calendar.daysBetween(instantFromReference(0), instant));
}

/// The user's calendar under a setting of TZ.
SystemCalendar currentUnder(const std::string& zone) {
    const ScopedEnvironment variable("TZ", zone);
    return SystemCalendar::current();
}

TEST(SystemCalendar, CurrentFollowsTheVariableAtOnce) {
    EXPECT_EQ(currentUnder("Asia/Kathmandu").hour(utc(2024, 1, 1)), 5);
    EXPECT_EQ(currentUnder("America/Havana").hour(utc(2024, 1, 1)), 19);
    EXPECT_EQ(currentUnder("").hour(utc(2024, 1, 1)), 0);
}

TEST(SystemCalendar, CurrentIsUniversalTimeForAVariableThatNamesNothing) {
    for (const char* garbage : {"Europe/Atlantis", "x", "../../../etc/passwd", "12", ",", "\xFF"})
        EXPECT_EQ(currentUnder(garbage).hour(utc(2024, 7, 1)), 0) << garbage;
}

TEST(SystemCalendar, CurrentUnderstandsRulesAsWellAsNames) {
    const ScopedEnvironment variable("TZ", "CET-1CEST,M3.5.0,M10.5.0/3");
    const auto berlin = SystemCalendar::current();
    EXPECT_EQ(berlin.hour(utc(2024, 1, 1)), 1);
    EXPECT_EQ(berlin.hour(utc(2024, 7, 1)), 2);
    EXPECT_EQ(dayAround(berlin, utc(2024, 3, 31, 12)), (Day{utc(2024, 3, 30, 23), 23}));
    EXPECT_EQ(dayAround(berlin, utc(2024, 10, 27, 12)), (Day{utc(2024, 10, 26, 22), 25}));
}

TEST(SystemCalendar, CurrentUnderstandsRulesThatChangeTheClockAtMidnight) {
    const ScopedEnvironment variable("TZ", "<-04>4<-03>,M9.1.6/24,M4.1.6/24");
    const auto santiago = SystemCalendar::current();
    EXPECT_EQ(dayAround(santiago, utc(2024, 9, 8, 12)), (Day{utc(2024, 9, 8, 4), 23}));
    EXPECT_EQ(dayAround(santiago, utc(2024, 4, 6, 12)), (Day{utc(2024, 4, 6, 3), 25}));
    EXPECT_EQ(santiago.date(2024, 9, 8, 0), utc(2024, 9, 8, 4)) << "skipped";
    EXPECT_EQ(santiago.date(2024, 9, 8, 1), utc(2024, 9, 8, 4));
    EXPECT_EQ(santiago.date(2024, 9, 8, 2), utc(2024, 9, 8, 5));
    EXPECT_EQ(santiago.date(2024, 4, 6, 23), utc(2024, 4, 7, 2)) << "twice";
}

} // namespace
} // namespace vantel
