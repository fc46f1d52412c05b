#include "core/SnapshotDocument.h"
#include "core/WidgetBuckets.h"
#include "platform/SystemCalendar.h"
#include "tests/fakes/FakeCalendar.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

namespace vantel {
namespace {

using Kind = WidgetHorizonItem::Kind;

const SystemCalendar berlin = SystemCalendar::named("Europe/Berlin").value();

Instant at(int year, int month, int day, int hour, int minute = 0) {
    return *berlin.date(year, month, day, hour) + Seconds(minute * 60);
}

const Instant tenOClock = at(2026, 11, 17, 10);

WidgetSnapshot placeholderAt(Instant now) {
    return WidgetSnapshot::placeholder(now, berlin);
}

TEST(PlaceholderSnapshot, AtTenItsDayIsTheDayAround) {
    const WidgetSnapshot snapshot = placeholderAt(tenOClock);
    EXPECT_EQ(snapshot.tasks.at(2).id, "demo-3");
    EXPECT_EQ(snapshot.tasks.at(2).deadline, at(2026, 11, 17, 17));
    EXPECT_EQ(snapshot.events.at(0).id, "demo-e1");
    EXPECT_EQ(snapshot.events.at(0).start, at(2026, 11, 17, 10, 25));
    EXPECT_EQ(snapshot.events.at(0).end, at(2026, 11, 17, 11, 25));
    EXPECT_EQ(snapshot.lastSyncAt, at(2026, 11, 17, 9, 48));
}

TEST(PlaceholderSnapshot, AtOneInTheNightItsDaysStillCountFromTheDaysStart) {
    const Instant now = at(2026, 11, 17, 1);
    const WidgetSnapshot snapshot = placeholderAt(now);
    EXPECT_EQ(snapshot.tasks.at(0).deadline, at(2026, 11, 15, 9));
    EXPECT_EQ(snapshot.tasks.at(5).completedAt, at(2026, 11, 17, 0));
    EXPECT_EQ(snapshot.tasks.at(6).completedAt, at(2026, 11, 16, 23));
    const auto done = WidgetBuckets::doneToday(snapshot.tasks, now, berlin);
    ASSERT_EQ(done.size(), 1U);
    EXPECT_EQ(done.at(0).id, "demo-6");
}

TEST(PlaceholderSnapshot, ReadsBackEqualAndIsOfTheCurrentVersion) {
    EXPECT_EQ(placeholderAt(tenOClock).version, WidgetSnapshot::currentVersion);
    for (int hour = 0; hour < 24 * 400; hour += 7) {
        const WidgetSnapshot snapshot = placeholderAt(tenOClock + std::chrono::hours(hour) + Seconds(0.125));
        EXPECT_EQ(decodeSnapshot(encodeSnapshot(snapshot).value()), snapshot);
    }
}

TEST(PlaceholderSnapshot, HoldsTheseTasks) {
    const WidgetSnapshot snapshot = placeholderAt(tenOClock);
    const std::vector<WidgetTask> tasks = {{.id = "demo-1",
                                            .summary = "Review R3 manuscript for Mirela",
                                            .deadline = at(2026, 11, 15, 9),
                                            .priorityRank = 0,
                                            .priorityScore = 0.94},
                                           {.id = "demo-2",
                                            .summary = "Send DFG interim report",
                                            .deadline = at(2026, 11, 16, 9),
                                            .priorityRank = 1,
                                            .priorityScore = 0.71},
                                           {.id = "demo-3",
                                            .summary = "Reply: sequencing quote (Illumina)",
                                            .deadline = at(2026, 11, 17, 17),
                                            .priorityRank = 0,
                                            .priorityScore = 0.88},
                                           {.id = "demo-4",
                                            .summary = "Prepare slides for lab meeting",
                                            .deadline = at(2026, 11, 17, 18),
                                            .priorityRank = 1,
                                            .priorityScore = 0.62},
                                           {.id = "demo-5",
                                            .summary = "Book flights for ISMB",
                                            .deadline = at(2026, 11, 23, 9),
                                            .priorityRank = 2,
                                            .priorityScore = 0.31},
                                           {.id = "demo-6",
                                            .summary = "Sign student contract renewal",
                                            .priorityRank = 1,
                                            .priorityScore = 0.55,
                                            .completedAt = at(2026, 11, 17, 9)},
                                           {.id = "demo-7",
                                            .summary = "Approve SAP travel request",
                                            .priorityRank = 2,
                                            .priorityScore = 0.28,
                                            .completedAt = at(2026, 11, 17, 8)}};
    EXPECT_EQ(snapshot.tasks, tasks);
}

TEST(PlaceholderSnapshot, HoldsTheseEvents) {
    const auto events = placeholderAt(tenOClock).events;
    ASSERT_EQ(events.size(), 3U);
    EXPECT_EQ(events[0], (WidgetEvent{.id = "demo-e1",
                                      .title = "Lab meeting",
                                      .start = at(2026, 11, 17, 10, 25),
                                      .end = at(2026, 11, 17, 11, 25),
                                      .location = "Seminar room D0.11",
                                      .joinURL = events[0].joinURL,
                                      .joinProvider = "Zoom",
                                      .linkedOpenTaskCount = 2}));
    EXPECT_EQ(events[1], (WidgetEvent{.id = "demo-e2",
                                      .title = "1:1 Maren \u2014 QC results",
                                      .start = at(2026, 11, 17, 12, 20),
                                      .end = at(2026, 11, 17, 12, 50),
                                      .joinURL = events[1].joinURL,
                                      .joinProvider = "Teams",
                                      .linkedOpenTaskCount = 0}));
    EXPECT_EQ(events[2], (WidgetEvent{.id = "demo-e3",
                                      .title = "Corvala grant call",
                                      .start = at(2026, 11, 17, 13, 20),
                                      .end = at(2026, 11, 17, 13, 50),
                                      .linkedOpenTaskCount = 0}));
    EXPECT_TRUE(events[0].joinURL->text.starts_with("https://zoom.us/"));
    EXPECT_TRUE(events[1].joinURL->text.starts_with("https://teams.microsoft.com/"));
}

TEST(PlaceholderSnapshot, HoldsThisHorizon) {
    const std::vector<WidgetHorizonItem> horizon = {{.id = "demo-h1",
                                                     .day = at(2026, 11, 18, 9),
                                                     .label = "Urlaub",
                                                     .subject = "Timo Valdes",
                                                     .kind = Kind::absence},
                                                    {.id = "demo-h2",
                                                     .day = at(2026, 11, 19, 9),
                                                     .label = "Contract ends",
                                                     .subject = "Lise Horvath",
                                                     .kind = Kind::personDate},
                                                    {.id = "demo-h3",
                                                     .day = at(2026, 11, 21, 9),
                                                     .label = "Report deadline",
                                                     .subject = "Corvala (DFG)",
                                                     .kind = Kind::grantDeadline},
                                                    {.id = "demo-h4",
                                                     .day = at(2026, 11, 26, 9),
                                                     .label = "Defense",
                                                     .subject = "Maren Oster",
                                                     .kind = Kind::personDate},
                                                    {.id = "demo-h5",
                                                     .day = at(2026, 11, 28, 9),
                                                     .label = "Milestone: WP2 data freeze",
                                                     .subject = "Tessaly (EU)",
                                                     .kind = Kind::grantMilestone}};
    EXPECT_EQ(placeholderAt(tenOClock).horizon, horizon);
}

TEST(PlaceholderSnapshot, HoldsTheseRemainingFields) {
    const WidgetSnapshot snapshot = placeholderAt(tenOClock);
    EXPECT_EQ(snapshot.accountID, "demo-account");
    EXPECT_EQ(snapshot.generatedAt, tenOClock);
    EXPECT_EQ(snapshot.triageCount, 12);
    EXPECT_EQ(snapshot.snoozedCount, 3);
    EXPECT_EQ(snapshot.allDayChips,
              (std::vector<WidgetChip>{{"Urlaub \u00B7 Timo"}, {"Contract ends \u00B7 Lise \u00B7 Fri"}}));
    EXPECT_FALSE(snapshot.recap);
}

TEST(PlaceholderSnapshot, FillsTheBucketsAtAnyHourAfterTwo) {
    for (int minute = 121; minute < 24 * 60; minute += 7) {
        const Instant now = at(2026, 11, 17, 0, minute);
        const auto overview = WidgetBuckets::overview(placeholderAt(now).tasks, now, berlin, 9);
        EXPECT_EQ(overview.overdue.count, 2);
        EXPECT_EQ(overview.dueToday.count, 2);
        EXPECT_EQ(overview.dueToday.first.at(0).id, "demo-3");
        EXPECT_EQ(overview.doneTodayCount, 2);
        EXPECT_EQ(overview.nextDue->id, "demo-5");
    }
}

TEST(PlaceholderSnapshot, DaysOfAClockChangeCountCivilDaysAndThenHours) {
    const WidgetSnapshot snapshot = placeholderAt(at(2024, 3, 30, 10));
    EXPECT_EQ(snapshot.horizon.at(0).day, *berlin.date(2024, 3, 31, 0) + std::chrono::hours(9));
    EXPECT_EQ(snapshot.horizon.at(1).day, at(2024, 4, 1, 9));
}

TEST(PlaceholderSnapshot, ACalendarThatCannotAddDaysPutsEveryDayAtNow) {
    const WidgetSnapshot snapshot =
        WidgetSnapshot::placeholder(tenOClock, testing::CalendarWithoutArithmetic());
    for (const WidgetHorizonItem& item : snapshot.horizon)
        EXPECT_EQ(item.day, tenOClock);
    for (std::size_t i = 0; i < 5; ++i)
        EXPECT_EQ(snapshot.tasks.at(i).deadline, tenOClock);
    EXPECT_EQ(snapshot.tasks.at(5).completedAt, tenOClock - std::chrono::hours(1));
    EXPECT_EQ(snapshot.events.at(0).start, tenOClock + std::chrono::minutes(25));
}

TEST(PlaceholderSnapshot, AnyInstantHasOne) {
    for (const double now : {0.0, 1e300, -1e300, 1e13, -1e13, 1e22, std::numeric_limits<double>::infinity(),
                             std::numeric_limits<double>::quiet_NaN()}) {
        const WidgetSnapshot snapshot = placeholderAt(instantFromReference(now));
        EXPECT_EQ(snapshot.tasks.size(), 7U);
        EXPECT_EQ(encodeSnapshot(snapshot).has_value(), std::isfinite(now));
    }
}

} // namespace
} // namespace vantel
