#include "core/WidgetSnapshot.h"

namespace vantel {

namespace {

using Kind = WidgetHorizonItem::Kind;

/// Moments relative to now, and to the hours of the days around it.
struct SampleTime {
    Instant now;
    Instant today;
    const Calendar& calendar;

    Instant at(int days, int hours) const { return calendar.adding(days, hours, today).value_or(now); }
    Instant in(int seconds) const { return now + Seconds(seconds); }
};

std::vector<WidgetTask> sampleTasks(const SampleTime& time) {
    return {
        {.id = "demo-1",
         .summary = "Review R3 manuscript for Mirela",
         .deadline = time.at(-2, 9),
         .priorityRank = 0,
         .priorityScore = 0.94},
        {.id = "demo-2",
         .summary = "Send DFG interim report",
         .deadline = time.at(-1, 9),
         .priorityRank = 1,
         .priorityScore = 0.71},
        {.id = "demo-3",
         .summary = "Reply: sequencing quote (Illumina)",
         .deadline = time.at(0, 17),
         .priorityRank = 0,
         .priorityScore = 0.88},
        {.id = "demo-4",
         .summary = "Prepare slides for lab meeting",
         .deadline = time.at(0, 18),
         .priorityRank = 1,
         .priorityScore = 0.62},
        {.id = "demo-5",
         .summary = "Book flights for ISMB",
         .deadline = time.at(6, 9),
         .priorityRank = 2,
         .priorityScore = 0.31},
        {.id = "demo-6",
         .summary = "Sign student contract renewal",
         .priorityRank = 1,
         .priorityScore = 0.55,
         .completedAt = time.in(-3600)},
        {.id = "demo-7",
         .summary = "Approve SAP travel request",
         .priorityRank = 2,
         .priorityScore = 0.28,
         .completedAt = time.in(-7200)},
    };
}

std::vector<WidgetEvent> sampleEvents(const SampleTime& time) {
    return {
        {.id = "demo-e1",
         .title = "Lab meeting",
         .start = time.in(1500),
         .end = time.in(5100),
         .location = "Seminar room D0.11",
         .joinURL = parseUrl("https://zoom.us/j/1234567890"),
         .joinProvider = "Zoom",
         .linkedOpenTaskCount = 2},
        {.id = "demo-e2",
         .title = "1:1 Maren — QC results",
         .start = time.in(8400),
         .end = time.in(10200),
         .joinURL = parseUrl("https://teams.microsoft.com/l/meetup-join/sample"),
         .joinProvider = "Teams",
         .linkedOpenTaskCount = 0},
        {.id = "demo-e3",
         .title = "Corvala grant call",
         .start = time.in(12000),
         .end = time.in(13800),
         .linkedOpenTaskCount = 0},
    };
}

std::vector<WidgetHorizonItem> sampleHorizon(const SampleTime& time) {
    return {
        {.id = "demo-h1",
         .day = time.at(1, 9),
         .label = "Urlaub",
         .subject = "Timo Valdes",
         .kind = Kind::absence},
        {.id = "demo-h2",
         .day = time.at(2, 9),
         .label = "Contract ends",
         .subject = "Lise Horvath",
         .kind = Kind::personDate},
        {.id = "demo-h3",
         .day = time.at(4, 9),
         .label = "Report deadline",
         .subject = "Corvala (DFG)",
         .kind = Kind::grantDeadline},
        {.id = "demo-h4",
         .day = time.at(9, 9),
         .label = "Defense",
         .subject = "Maren Oster",
         .kind = Kind::personDate},
        {.id = "demo-h5",
         .day = time.at(11, 9),
         .label = "Milestone: WP2 data freeze",
         .subject = "Tessaly (EU)",
         .kind = Kind::grantMilestone},
    };
}

} // namespace

WidgetSnapshot WidgetSnapshot::placeholder(Instant now, const Calendar& calendar) {
    const SampleTime time{now, calendar.startOfDay(now), calendar};
    return {.version = currentVersion,
            .accountID = "demo-account",
            .generatedAt = now,
            .lastSyncAt = time.in(-720),
            .tasks = sampleTasks(time),
            .triageCount = 12,
            .snoozedCount = 3,
            .events = sampleEvents(time),
            .allDayChips = {{"Urlaub · Timo"}, {"Contract ends · Lise · Fri"}},
            .horizon = sampleHorizon(time)};
}

} // namespace vantel
