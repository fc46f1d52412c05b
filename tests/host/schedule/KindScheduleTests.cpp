#include "host/schedule/KindSchedule.h"

#include <limits>

#include <gtest/gtest.h>

namespace vantel {
namespace {

constexpr WidgetFamily small = WidgetFamily::systemSmall;
constexpr WidgetFamily medium = WidgetFamily::systemMedium;

Instant at(double seconds) {
    return instantFromReference(seconds);
}

Timeline<TimelineEntry> timeline(const std::vector<double>& dates, double reloadDate) {
    Timeline<TimelineEntry> result{{}, {at(reloadDate)}};
    for (const double date : dates)
        result.entries.push_back({at(date), {}});
    return result;
}

/// A schedule whose request began at a moment and was answered.
KindSchedule answered(double start, KindTimelines timelines) {
    KindSchedule schedule;
    schedule.want();
    EXPECT_TRUE(schedule.begin(at(start)));
    schedule.answer(std::move(timelines));
    return schedule;
}

double shownDate(const KindSchedule& schedule, double now, WidgetFamily family = small) {
    const TimelineEntry* entry = schedule.shown(family, at(now));
    return entry == nullptr ? -1 : secondsSinceReference(entry->date);
}

double nextMoment(const KindSchedule& schedule, double now) {
    const auto next = schedule.nextMoment(at(now));
    return next ? secondsSinceReference(*next) : -1;
}

TEST(KindSchedule, ShowsTheLastEntryWhoseDateIsNotAfterNow) {
    const KindSchedule schedule = answered(100, {{small, timeline({100, 160, 400}, 1000)}});
    struct Row {
        double now;
        double shown;
    };
    for (const Row& row : std::vector<Row>{{100, 100},
                                           {159.999, 100},
                                           {160, 160},
                                           {399.999, 160},
                                           {400, 400},
                                           {1e12, 400},
                                           {99.999, 100},
                                           {-1e12, 100}})
        EXPECT_EQ(shownDate(schedule, row.now), row.shown) << row.now;
}

TEST(KindSchedule, WithoutATimelineOfAFamilyShowsNothing) {
    const KindSchedule schedule = answered(100, {{small, timeline({100}, 1000)}});
    EXPECT_EQ(shownDate(schedule, 100, medium), -1);
    EXPECT_EQ(shownDate(KindSchedule(), 100), -1);
    EXPECT_EQ(shownDate(answered(100, {{small, timeline({}, 1000)}}), 100), -1);
}

TEST(KindSchedule, TheNextMomentIsTheNextEntryOfAnyFamilyOrTheReloadDate) {
    const KindSchedule schedule =
        answered(100, {{small, timeline({100, 400}, 1000)}, {medium, timeline({100, 160}, 900)}});
    struct Row {
        double now;
        double next;
    };
    for (const Row& row : std::vector<Row>{
             {100, 160}, {159.9, 160}, {160, 400}, {400, 900}, {899.9, 900}, {900, 900}, {50, 100}})
        EXPECT_EQ(nextMoment(schedule, row.now), row.next) << row.now;
}

TEST(KindSchedule, NothingAskedAndNothingShownHasNoNextMoment) {
    EXPECT_EQ(nextMoment(KindSchedule(), 100), -1);
    KindSchedule schedule;
    EXPECT_FALSE(schedule.begin(at(100)));
}

TEST(KindSchedule, AReloadBeginsAtItsDateAndNotBefore) {
    KindSchedule schedule = answered(100, {{small, timeline({100}, 1000)}});
    EXPECT_FALSE(schedule.begin(at(999.9)));
    EXPECT_TRUE(schedule.begin(at(1000)));
    EXPECT_FALSE(schedule.begin(at(1001)));
}

TEST(KindSchedule, WhatIsShownStaysWhileARequestRunsAndWhenItFails) {
    KindSchedule schedule = answered(100, {{small, timeline({100, 160}, 1000)}});
    schedule.want();
    ASSERT_TRUE(schedule.begin(at(150)));
    EXPECT_EQ(shownDate(schedule, 150), 100);
    EXPECT_EQ(shownDate(schedule, 170), 160);
    EXPECT_EQ(nextMoment(schedule, 150), 160);
    schedule.fail();
    EXPECT_EQ(shownDate(schedule, 170), 160);
}

TEST(KindSchedule, AFailedRequestIsMadeAgainAfterAWhile) {
    KindSchedule schedule;
    schedule.want();
    ASSERT_TRUE(schedule.begin(at(100)));
    schedule.fail();
    EXPECT_EQ(nextMoment(schedule, 100), 1000);
    EXPECT_FALSE(schedule.begin(at(999)));
    EXPECT_TRUE(schedule.begin(at(1000)));
}

TEST(KindSchedule, AtMostOneRequestRunsAndOneWaits) {
    KindSchedule schedule;
    EXPECT_TRUE(schedule.want());
    EXPECT_FALSE(schedule.want());
    ASSERT_TRUE(schedule.begin(at(100)));
    EXPECT_TRUE(schedule.want());
    EXPECT_FALSE(schedule.want());
    EXPECT_FALSE(schedule.begin(at(500)));
    EXPECT_EQ(nextMoment(schedule, 500), -1);
    schedule.answer({});
    EXPECT_TRUE(schedule.begin(at(500)));
    schedule.answer({});
    EXPECT_FALSE(schedule.begin(at(600)));
}

TEST(KindSchedule, RequestsStartAtLeastATenthOfASecondApart) {
    KindSchedule schedule = answered(100, {});
    schedule.want();
    EXPECT_FALSE(schedule.begin(at(100)));
    EXPECT_FALSE(schedule.begin(at(100.05)));
    EXPECT_EQ(nextMoment(schedule, 100.05), 100.1);
    EXPECT_TRUE(schedule.begin(at(100.1)));
}

TEST(KindSchedule, AClockThatIsSetBackDelaysNoRequest) {
    KindSchedule schedule = answered(5000, {});
    schedule.want();
    EXPECT_EQ(nextMoment(schedule, 100), 100);
    EXPECT_TRUE(schedule.begin(at(100)));
}

TEST(KindSchedule, AReloadDateThatWasOverAtTheStartWaitsAMinute) {
    for (const double date : {100.0, 99.0, -1e300, std::numeric_limits<double>::quiet_NaN()})
        EXPECT_EQ(nextMoment(answered(100, {{small, timeline({100}, date)}}), 101), 160) << date;
    EXPECT_EQ(nextMoment(answered(100, {{small, timeline({100}, 100.5)}}), 101), 101);
}

TEST(KindSchedule, AMidnightThatPassesWhileARequestBlocksIsCaughtUpAtOnce) {
    KindSchedule schedule;
    schedule.want();
    ASSERT_TRUE(schedule.begin(at(100)));
    schedule.answer({{small, timeline({100}, 200)}});
    EXPECT_EQ(nextMoment(schedule, 900), 900);
    EXPECT_TRUE(schedule.begin(at(900)));
}

TEST(KindSchedule, OnceClearedShowsAndPlansNothing) {
    KindSchedule schedule = answered(100, {{small, timeline({100, 160}, 1000)}});
    schedule.want();
    schedule.clear();
    EXPECT_EQ(shownDate(schedule, 100), -1);
    EXPECT_EQ(nextMoment(schedule, 100), -1);
    EXPECT_FALSE(schedule.begin(at(5000)));
}

} // namespace
} // namespace vantel
