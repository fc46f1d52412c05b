#pragma once

#include "core/SnapshotDocument.h"

#include <ostream>

namespace vantel {

/// How a failing test shows a snapshot.
inline void PrintTo(const WidgetSnapshot& snapshot, std::ostream* stream) {
    *stream << encodeSnapshot(snapshot).value_or("a snapshot that has no document");
}

} // namespace vantel

namespace vantel::testing {

/// Of the day whose morning the sample snapshot is of.
inline constexpr Instant noon = instantFromReference(788'961'600);

/// A small snapshot with something in each of its lists: the open tasks "a" and "b", and "c", which is
/// completed.
inline WidgetSnapshot sampleSnapshot(const std::string& accountID = "account") {
    const Instant morning = instantFromReference(788'918'400);
    return {
        .version = WidgetSnapshot::currentVersion,
        .accountID = accountID,
        .generatedAt = morning,
        .lastSyncAt = morning - Seconds(60),
        .tasks =
            {{.id = "a", .summary = "First", .deadline = morning, .priorityRank = 1, .priorityScore = 0.5},
             {.id = "b", .summary = "Second", .priorityRank = 2, .priorityScore = 0.25},
             {.id = "c", .summary = "Done", .priorityRank = 3, .priorityScore = 0, .completedAt = morning}},
        .triageCount = 4,
        .snoozedCount = 5,
        .events = {{.id = "e", .title = "Meeting", .start = morning, .linkedOpenTaskCount = 0}},
        .allDayChips = {{"Chip"}},
        .horizon = {{.id = "h",
                     .day = morning,
                     .label = "Label",
                     .subject = "Subject",
                     .kind = WidgetHorizonItem::Kind::absence}},
        .recap = WidgetRecap{.received = 1,
                             .processed = 2,
                             .actionItems = 3,
                             .spamFiltered = 4,
                             .tasksCompleted = 5,
                             .previousProcessed = 6}};
}

/// The document of a snapshot that has one.
inline std::string documentOf(const WidgetSnapshot& snapshot) {
    return encodeSnapshot(snapshot).value();
}

} // namespace vantel::testing
