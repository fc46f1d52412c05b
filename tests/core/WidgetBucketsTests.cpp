#include "core/WidgetBuckets.h"
#include "platform/SystemCalendar.h"
#include "tests/fakes/FakeCalendar.h"

#include <limits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vantel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using WidgetBuckets::Tasks;

const SystemCalendar berlin = SystemCalendar::named("Europe/Berlin").value();

Instant at(int year, int month, int day, int hour, double minute = 0) {
    return *berlin.date(year, month, day, hour) + Seconds(minute * 60);
}

const Instant midnight = at(2026, 11, 17, 0);
const Instant tomorrow = at(2026, 11, 18, 0);
const Instant morning = at(2026, 11, 17, 9, 20);
constexpr Seconds oneSecond(1);

WidgetTask task(const std::string& id, std::optional<Instant> deadline, double score = 0) {
    return {.id = id, .summary = "", .deadline = deadline, .priorityRank = 0, .priorityScore = score};
}

WidgetTask done(const std::string& id, Instant completedAt, std::optional<Instant> deadline = std::nullopt) {
    WidgetTask result = task(id, deadline);
    result.completedAt = completedAt;
    return result;
}

std::vector<std::string> ids(const Tasks& tasks) {
    std::vector<std::string> result;
    for (const WidgetTask& each : tasks)
        result.push_back(each.id);
    return result;
}

std::vector<std::string> overdue(const Tasks& tasks) {
    return ids(WidgetBuckets::overdue(tasks, morning, berlin));
}

std::vector<std::string> dueToday(const Tasks& tasks) {
    return ids(WidgetBuckets::dueToday(tasks, morning, berlin));
}

std::vector<std::string> doneToday(const Tasks& tasks) {
    return ids(WidgetBuckets::doneToday(tasks, morning, berlin));
}

std::vector<std::string> displayOrder(const Tasks& tasks) {
    return ids(WidgetBuckets::displayOrder(tasks));
}

TEST(WidgetBuckets, ATaskWithoutADeadlineIsNeverDueAndComesLast) {
    const Tasks tasks = {task("undated", std::nullopt, 1e300), task("dated", at(2030, 1, 1, 0), -1e300)};
    EXPECT_THAT(overdue(tasks), IsEmpty());
    EXPECT_THAT(dueToday(tasks), IsEmpty());
    EXPECT_THAT(displayOrder(tasks), ElementsAre("dated", "undated"));
}

TEST(WidgetBuckets, ATaskDueAtTheStartOfTodayIsDueTodayAndOneBeforeIsOverdue) {
    const Tasks tasks = {task("at", midnight), task("before", midnight - oneSecond),
                         task("justBefore", midnight - Seconds(0.001))};
    EXPECT_THAT(dueToday(tasks), ElementsAre("at"));
    EXPECT_THAT(overdue(tasks), ElementsAre("before", "justBefore"));
}

TEST(WidgetBuckets, ATaskThatWasDueEarlierTodayIsNotOverdue) {
    const Tasks tasks = {task("earlier", morning - oneSecond)};
    EXPECT_THAT(overdue(tasks), IsEmpty());
    EXPECT_THAT(dueToday(tasks), ElementsAre("earlier"));
}

TEST(WidgetBuckets, ATaskDueAtTheStartOfTomorrowIsNotDueToday) {
    const Tasks tasks = {task("tomorrow", tomorrow), task("tonight", tomorrow - oneSecond)};
    EXPECT_THAT(dueToday(tasks), ElementsAre("tonight"));
    EXPECT_THAT(overdue(tasks), IsEmpty());
}

TEST(WidgetBuckets, ACompletedTaskIsNeitherOverdueNorDue) {
    for (const Instant completedAt :
         {at(2001, 1, 1, 0), morning, at(2030, 1, 1, 0), instantFromReference(-1e300)}) {
        const Tasks tasks = {done("yesterday's", completedAt, midnight - oneSecond),
                             done("today's", completedAt, midnight)};
        EXPECT_THAT(overdue(tasks), IsEmpty());
        EXPECT_THAT(dueToday(tasks), IsEmpty());
        EXPECT_EQ(WidgetBuckets::dueCount(tasks, morning, berlin), 0);
    }
}

TEST(WidgetBuckets, ATaskIsDoneTodayFromTheStartOfTodayOnWithoutAnEnd) {
    const Tasks tasks = {done("tomorrow", tomorrow), done("at", midnight),
                         done("before", midnight - oneSecond), done("next year", at(2027, 1, 1, 0)),
                         task("open", midnight)};
    EXPECT_THAT(doneToday(tasks), ElementsAre("tomorrow", "at", "next year"));
}

TEST(WidgetBuckets, TheHigherScoreComesFirstAmongEqualDeadlines) {
    EXPECT_THAT(displayOrder({task("low", std::nullopt, 0.2), task("high", std::nullopt, 0.9)}),
                ElementsAre("high", "low"));
    EXPECT_THAT(displayOrder({task("low", midnight, 0.2), task("high", midnight, 0.9)}),
                ElementsAre("high", "low"));
    EXPECT_THAT(displayOrder({task("later", tomorrow, 0.9), task("earlier", midnight, 0.2)}),
                ElementsAre("earlier", "later"));
}

TEST(WidgetBuckets, EqualTasksKeepTheirOrder) {
    EXPECT_THAT(displayOrder({task("b", midnight, 0.5), task("a", midnight, 0.5), task("c", midnight, 0.5)}),
                ElementsAre("b", "a", "c"));
    EXPECT_THAT(displayOrder({task("b", std::nullopt), task("a", std::nullopt)}), ElementsAre("b", "a"));
    EXPECT_THAT(displayOrder({task("b", std::nullopt, -0.0), task("a", std::nullopt, 0.0)}),
                ElementsAre("b", "a"));
}

TEST(WidgetBuckets, NothingButDeadlineAndScoreOrders) {
    WidgetTask implied = task("z", midnight);
    implied.deadlineImplied = true;
    implied.priorityRank = 9;
    implied.summary = "zzz";
    WidgetTask plain = task("a", midnight);
    EXPECT_THAT(displayOrder({implied, plain}), ElementsAre("z", "a"));
    EXPECT_THAT(displayOrder({plain, implied}), ElementsAre("a", "z"));
}

TEST(WidgetBuckets, BucketsAreInDisplayOrder) {
    const Tasks tasks = {task("d2", midnight + oneSecond, 1), task("o2", midnight - oneSecond, 1),
                         task("d1", midnight, 0), task("o1", midnight - oneSecond, 2),
                         task("o0", midnight - 2 * oneSecond, 0)};
    EXPECT_THAT(overdue(tasks), ElementsAre("o0", "o1", "o2"));
    EXPECT_THAT(dueToday(tasks), ElementsAre("d1", "d2"));
    EXPECT_EQ(WidgetBuckets::dueCount(tasks, morning, berlin), 5);
}

TEST(WidgetBuckets, OpenTasksAreThoseWithoutACompletionInInputOrder) {
    EXPECT_THAT(
        ids(WidgetBuckets::open(Tasks{task("b", std::nullopt), done("x", midnight), task("a", midnight)})),
        ElementsAre("b", "a"));
}

TEST(WidgetBuckets, ADayOfAClockChangeHasItsOwnLength) {
    const struct {
        Instant noon;
        double hours;
    } rows[] = {{at(2024, 3, 31, 12), 23}, {at(2024, 10, 27, 12), 25}, {at(2024, 6, 1, 12), 24}};
    for (const auto& row : rows) {
        const Instant start = berlin.startOfDay(row.noon);
        const Instant end = start + Seconds(row.hours * 3600);
        EXPECT_EQ(WidgetBuckets::nextMidnight(row.noon, berlin), end);
        const Tasks tasks = {task("first", start), task("last", end - oneSecond), task("next", end)};
        EXPECT_THAT(ids(WidgetBuckets::dueToday(tasks, row.noon, berlin)), ElementsAre("first", "last"))
            << row.hours;
    }
}

TEST(WidgetBuckets, RecapTimeIsFromFridayAfternoonUntilSundayEnds) {
    EXPECT_FALSE(WidgetBuckets::isRecapTime(at(2026, 11, 20, 14, 59), berlin));
    EXPECT_FALSE(WidgetBuckets::isRecapTime(at(2026, 11, 20, 15) - Seconds(0.001), berlin));
    EXPECT_TRUE(WidgetBuckets::isRecapTime(at(2026, 11, 20, 15), berlin));
    EXPECT_TRUE(WidgetBuckets::isRecapTime(at(2026, 11, 20, 23, 59), berlin));
    for (int hour = 0; hour < 24; ++hour) {
        EXPECT_TRUE(WidgetBuckets::isRecapTime(at(2026, 11, 21, hour), berlin));
        EXPECT_TRUE(WidgetBuckets::isRecapTime(at(2026, 11, 22, hour), berlin));
        for (int weekday = 16; weekday <= 19; ++weekday)
            EXPECT_FALSE(WidgetBuckets::isRecapTime(at(2026, 11, weekday, hour), berlin));
    }
    EXPECT_FALSE(WidgetBuckets::isRecapTime(at(2026, 11, 20, 0), berlin));
}

TEST(WidgetBuckets, RecapTimeIsThatOfTheCalendarsZone) {
    const Instant moment = at(2026, 11, 20, 15);
    EXPECT_TRUE(WidgetBuckets::isRecapTime(moment, berlin));
    EXPECT_FALSE(WidgetBuckets::isRecapTime(moment, SystemCalendar(cctz::utc_time_zone())));
}

TEST(WidgetBuckets, TheNextMidnightIsNeverTheInstantItself) {
    EXPECT_EQ(WidgetBuckets::nextMidnight(tomorrow - oneSecond, berlin), tomorrow);
    EXPECT_EQ(WidgetBuckets::nextMidnight(midnight, berlin), tomorrow);
    EXPECT_EQ(WidgetBuckets::nextMidnight(midnight + Seconds(1e-6), berlin), tomorrow);
}

TEST(WidgetBuckets, TheNextMidnightLiesAheadWhenAClockGoesBackOverMidnight) {
    const auto saintJohns = SystemCalendar::named("America/St_Johns").value();
    const Instant before = *saintJohns.date(2010, 11, 6, 22);
    for (double minutes = 0; minutes < 300; ++minutes) {
        const Instant instant = before + Seconds(minutes * 60);
        EXPECT_GT(WidgetBuckets::nextMidnight(instant, saintJohns), instant);
    }
}

TEST(WidgetBuckets, NoTasksGiveNothing) {
    EXPECT_THAT(WidgetBuckets::open({}), IsEmpty());
    EXPECT_THAT(WidgetBuckets::overdue({}, morning, berlin), IsEmpty());
    EXPECT_THAT(WidgetBuckets::dueToday({}, morning, berlin), IsEmpty());
    EXPECT_THAT(WidgetBuckets::doneToday({}, morning, berlin), IsEmpty());
    EXPECT_THAT(WidgetBuckets::displayOrder({}), IsEmpty());
    EXPECT_EQ(WidgetBuckets::dueCount({}, morning, berlin), 0);
    EXPECT_FALSE(WidgetBuckets::nextDue({}, morning, berlin));
    EXPECT_EQ(WidgetBuckets::overview({}, morning, berlin, 3), WidgetBuckets::Overview());
}

TEST(WidgetBuckets, NextDueIsTheEarliestOpenDeadlineAfterToday) {
    const Tasks tasks = {task("today", tomorrow - oneSecond), task("later", tomorrow + oneSecond),
                         done("done", morning, tomorrow),     task("first", tomorrow),
                         task("second", tomorrow, 9),         task("undated", std::nullopt)};
    EXPECT_EQ(WidgetBuckets::nextDue(tasks, morning, berlin)->id, "first");
    EXPECT_FALSE(WidgetBuckets::nextDue(Tasks{tasks[0], tasks[2], tasks[5]}, morning, berlin));
}

TEST(WidgetBuckets, ACalendarThatCannotAddADayLeavesTodayEmptyAndTheNextMidnightADayAway) {
    const testing::CalendarWithoutArithmetic calendar;
    const Instant noon = calendar.startOfDay(morning) + Seconds(12 * 3600);
    const Tasks tasks = {task("overdue", calendar.startOfDay(noon) - oneSecond), task("today", noon),
                         task("tomorrow", noon + Seconds(86'399)), task("then", noon + Seconds(86'400)),
                         done("done", noon)};
    EXPECT_EQ(WidgetBuckets::nextMidnight(noon, calendar), noon + Seconds(86'400));
    EXPECT_THAT(WidgetBuckets::dueToday(tasks, noon, calendar), IsEmpty());
    EXPECT_THAT(ids(WidgetBuckets::overdue(tasks, noon, calendar)), ElementsAre("overdue"));
    EXPECT_THAT(ids(WidgetBuckets::doneToday(tasks, noon, calendar)), ElementsAre("done"));
    EXPECT_EQ(WidgetBuckets::dueCount(tasks, noon, calendar), 1);
    EXPECT_EQ(WidgetBuckets::nextDue(tasks, noon, calendar)->id, "then");
}

TEST(WidgetBuckets, InputIsLeftAlone) {
    const Tasks tasks = {task("b", tomorrow), task("a", midnight)};
    const Tasks before = tasks;
    WidgetBuckets::displayOrder(tasks);
    WidgetBuckets::overview(tasks, morning, berlin, 1);
    EXPECT_EQ(tasks, before);
}

} // namespace
} // namespace vantel
