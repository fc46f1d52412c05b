#include "tests/fakes/FakeCalendar.h"
#include "tests/fakes/ScopedEnvironment.h"
#include "tests/fakes/ScratchFolder.h"
#include "tests/widgets/WidgetFixture.h"
#include "widgets/SnapshotProvider.h"
#include "widgets/TimelinePlan.h"

#include <gtest/gtest.h>

namespace vantel {
namespace {

using namespace testing;

/// A provider over a container of its own, with a clock that stands still.
class SnapshotProviderTest : public ::testing::Test {
protected:
    Timeline<SnapshotEntry> timelineAt(Instant now) const {
        const FixedClock clock(now);
        return provider.getTimeline({.clock = clock, .calendar = berlin()});
    }

    SnapshotEntry snapshotAt(Instant now, bool isPreview) const {
        const FixedClock clock(now);
        return provider.getSnapshot({.clock = clock, .calendar = berlin(), .isPreview = isPreview});
    }

    static std::vector<Instant> dates(const Timeline<SnapshotEntry>& timeline) {
        std::vector<Instant> dates;
        for (const SnapshotEntry& each : timeline.entries)
            dates.push_back(each.date);
        return dates;
    }

    /// The dates planned for a snapshot with these events.
    static std::vector<Instant> planned(std::vector<WidgetEvent> events, Instant now) {
        WidgetSnapshot snapshot = emptySnapshot(now);
        snapshot.events = std::move(events);
        return dates(plannedTimeline(entry(snapshot, now).snapshot, now, berlin()));
    }

    SnapshotProvider provider;
    ScratchFolder scratch;
    ScopedEnvironment container{"XDG_DATA_HOME", scratch.path().string()};
};

using Dates = std::vector<Instant>;

TEST(SnapshotEntry, IsEqualByDateAndByWhatTheSnapshotHoldsWhereverThatLies) {
    const Instant now = at("2026-11-17T09:20");
    WidgetSnapshot other = emptySnapshot(now);
    other.triageCount += 1;
    const SnapshotEntry first = entry(emptySnapshot(now), now);
    EXPECT_EQ(first, first);
    EXPECT_EQ(first, entry(emptySnapshot(now), now));
    EXPECT_EQ((SnapshotEntry{now, nullptr}), (SnapshotEntry{now, nullptr}));
    EXPECT_NE(first, entry(emptySnapshot(now), now + Seconds(1)));
    EXPECT_NE(first, entry(other, now));
    EXPECT_NE(first, (SnapshotEntry{now, nullptr}));
    EXPECT_NE((SnapshotEntry{now, nullptr}), first);
}

TEST_F(SnapshotProviderTest, WithoutASnapshotATimelineHasOneEntryAndReloadsAtMidnight) {
    const auto timeline = timelineAt(at("2026-11-17T09:20"));
    EXPECT_EQ(dates(timeline), Dates{at("2026-11-17T09:20")});
    EXPECT_EQ(timeline.entries.front().snapshot, nullptr);
    EXPECT_EQ(timeline.policy.after, at("2026-11-18"));
}

TEST_F(SnapshotProviderTest, WithoutASnapshotAFridayHasTwoEntriesBeforeTheRecapBegins) {
    EXPECT_EQ(dates(timelineAt(at("2026-11-20T09:20"))),
              (Dates{at("2026-11-20T09:20"), at("2026-11-20T15:00")}));
}

TEST_F(SnapshotProviderTest, WithoutASnapshotAQuickLookShowsTheSample) {
    const Instant now = at("2026-11-17T09:20");
    const SnapshotEntry look = snapshotAt(now, false);
    ASSERT_NE(look.snapshot, nullptr);
    EXPECT_EQ(*look.snapshot, WidgetSnapshot::placeholder(now, berlin()));
    EXPECT_EQ(look.date, now);
}

TEST_F(SnapshotProviderTest, APreviewNeverReadsTheFile) {
    const Instant now = at("2026-11-17T09:20");
    ASSERT_TRUE(emptySnapshot(now).write());
    EXPECT_EQ(*snapshotAt(now, true).snapshot, WidgetSnapshot::placeholder(now, berlin()));
    EXPECT_EQ(*snapshotAt(now, false).snapshot, emptySnapshot(now));
}

TEST_F(SnapshotProviderTest, APlaceholderIsTheSampleOfNow) {
    const Instant now = at("2026-11-17T09:20");
    ASSERT_TRUE(emptySnapshot(now).write());
    const FixedClock clock(now);
    const SnapshotEntry placeholder = provider.placeholder({.clock = clock, .calendar = berlin()});
    EXPECT_EQ(*placeholder.snapshot, WidgetSnapshot::placeholder(now, berlin()));
}

TEST_F(SnapshotProviderTest, ATimelineReadsTheSharedSnapshotAnewAndAllEntriesShareIt) {
    WidgetSnapshot snapshot = emptySnapshot(at("2026-11-17T08:00"));
    snapshot.events = {event("a", at("2026-11-17T10:00"), at("2026-11-17T11:00"))};
    ASSERT_TRUE(snapshot.write());
    const auto timeline = timelineAt(at("2026-11-17T09:00"));
    ASSERT_EQ(timeline.entries.size(), 4U);
    EXPECT_EQ(*timeline.entries.front().snapshot, snapshot);
    EXPECT_EQ(timeline.entries.front().snapshot, timeline.entries.back().snapshot);
}

TEST_F(SnapshotProviderTest, ASnapshotOfAnotherVersionIsNoSnapshot) {
    WidgetSnapshot snapshot = emptySnapshot(at("2026-11-17T08:00"));
    snapshot.version = 2;
    ASSERT_TRUE(snapshot.write());
    EXPECT_EQ(timelineAt(at("2026-11-17T09:00")).entries.front().snapshot, nullptr);
}

TEST_F(SnapshotProviderTest, AnEventGivesEntriesFiveMinutesBeforeAtItsStartAndAtItsEnd) {
    const std::vector<WidgetEvent> events = {event("a", at("2026-11-17T10:00"), at("2026-11-17T11:00"))};
    EXPECT_EQ(planned(events, at("2026-11-17T09:00")),
              (Dates{at("2026-11-17T09:00"), at("2026-11-17T09:55"), at("2026-11-17T10:00"),
                     at("2026-11-17T11:00")}));
}

TEST_F(SnapshotProviderTest, WhatLiesBehindGivesNoEntry) {
    const std::vector<WidgetEvent> events = {event("a", at("2026-11-17T10:00"), at("2026-11-17T11:00"))};
    EXPECT_EQ(planned(events, at("2026-11-17T09:57")),
              (Dates{at("2026-11-17T09:57"), at("2026-11-17T10:00"), at("2026-11-17T11:00")}));
    EXPECT_EQ(planned(events, at("2026-11-17T10:00")),
              (Dates{at("2026-11-17T10:00"), at("2026-11-17T11:00")}));
    EXPECT_EQ(planned(events, at("2026-11-17T11:00")), Dates{at("2026-11-17T11:00")});
}

TEST_F(SnapshotProviderTest, AnEventWithoutAnEndGivesTwoEntriesAtMost) {
    EXPECT_EQ(planned({event("a", at("2026-11-17T10:00"), std::nullopt)}, at("2026-11-17T09:00")),
              (Dates{at("2026-11-17T09:00"), at("2026-11-17T09:55"), at("2026-11-17T10:00")}));
}

TEST_F(SnapshotProviderTest, EqualMomentsGiveOneEntryAndEntriesAscendWhateverTheOrderOfEvents) {
    const std::vector<WidgetEvent> events = {event("late", at("2026-11-17T14:00"), std::nullopt),
                                             event("a", at("2026-11-17T10:00"), std::nullopt),
                                             event("b", at("2026-11-17T10:00"), std::nullopt)};
    EXPECT_EQ(planned(events, at("2026-11-17T09:00")),
              (Dates{at("2026-11-17T09:00"), at("2026-11-17T09:55"), at("2026-11-17T10:00"),
                     at("2026-11-17T13:55"), at("2026-11-17T14:00")}));
}

TEST_F(SnapshotProviderTest, NothingAtOrAfterMidnightGivesAnEntry) {
    const Dates untilMidnight = {at("2026-11-17T22:00"), at("2026-11-17T22:55"), at("2026-11-17T23:00")};
    EXPECT_EQ(planned({event("a", at("2026-11-17T23:00"), at("2026-11-18"))}, at("2026-11-17T22:00")),
              untilMidnight);
    EXPECT_EQ(planned({event("a", at("2026-11-17T23:00"), at("2026-11-18T01:00"))}, at("2026-11-17T22:00")),
              untilMidnight);
    EXPECT_EQ(planned({event("a", at("2026-11-18T10:00"), at("2026-11-18T11:00"))}, at("2026-11-17T22:00")),
              Dates{at("2026-11-17T22:00")});
}

TEST_F(SnapshotProviderTest, TheRecapMomentIsPlannedOnAFridayBeforeThreeOnly) {
    struct Row {
        const char* now;
        bool isPlanned;
    };
    for (const Row& row :
         {Row{"2026-11-20T00:00", true}, Row{"2026-11-20T14:59", true}, Row{"2026-11-20T15:00", false},
          Row{"2026-11-20T15:01", false}, Row{"2026-11-19T14:59", false}, Row{"2026-11-21T14:59", false},
          Row{"2026-11-22T14:59", false}, Row{"2026-11-16T14:59", false}})
        EXPECT_EQ(planned({}, at(row.now)).size(), row.isPlanned ? 2U : 1U) << row.now;
}

TEST_F(SnapshotProviderTest, WithoutCalendarArithmeticTheReloadIsADaysLengthAwayAndNoRecapIsPlanned) {
    const CalendarWithoutArithmetic calendar;
    const Instant friday = at("2026-11-20T10:00");
    const auto timeline = plannedTimeline(nullptr, friday, calendar);
    EXPECT_EQ(timeline.entries.size(), 1U);
    EXPECT_EQ(timeline.policy.after, friday + std::chrono::hours(24));
}

TEST_F(SnapshotProviderTest, InstantsOfAnySizeAreNoHarm) {
    for (const double extreme : {1e300, -1e300, 9.3e18, std::numeric_limits<double>::infinity()}) {
        const Instant moment = instantFromReference(extreme);
        EXPECT_EQ(planned({event("a", moment, moment)}, at("2026-11-17T22:00")).size(), 1U) << extreme;
        EXPECT_GE(planned({event("a", at("2026-11-17T22:00"), std::nullopt)}, moment).size(), 1U) << extreme;
    }
}

TEST(TimelinePlan, TellsWhyEachMomentIsThere) {
    WidgetSnapshot snapshot = emptySnapshot(at("2026-11-20T09:00"));
    snapshot.events = {event("a", at("2026-11-20T14:55"), at("2026-11-20T15:00"))};
    std::vector<PlannedMoment::Reason> reasons;
    for (const PlannedMoment& moment : plannedMoments(&snapshot, at("2026-11-20T09:00"), berlin()))
        reasons.push_back(moment.reason);
    using enum PlannedMoment::Reason;
    EXPECT_EQ(reasons, (std::vector{now, eventIsNear, eventStarts, eventEnds, recapBegins}));
}

} // namespace
} // namespace vantel
