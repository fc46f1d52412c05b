#pragma once

#include "hosting/WidgetView.h"
#include "platform/InstantText.h"
#include "tests/fakes/FakeFormats.h"
#include "widgets/SnapshotEntry.h"

#include <string>
#include <vector>

namespace vantel::testing {

/// Berlin, where most samples of the tests take place.
inline const SystemCalendar& berlin() {
    static const SystemCalendar calendar = SystemCalendar::named("Europe/Berlin").value();
    return calendar;
}

/// A moment of Berlin's clock: at("2026-11-17T09:20").
inline Instant at(std::string_view text) {
    return parseInstant(text, berlin()).value();
}

inline const PlainFormats& plainFormats() {
    static const PlainFormats formats;
    return formats;
}

inline ViewContext small() {
    return {WidgetFamily::systemSmall, berlin(), plainFormats()};
}

inline ViewContext medium() {
    return {WidgetFamily::systemMedium, berlin(), plainFormats()};
}

inline WidgetSnapshot emptySnapshot(Instant generatedAt) {
    return {.version = 1,
            .accountID = "acct",
            .generatedAt = generatedAt,
            .tasks = {},
            .triageCount = 0,
            .snoozedCount = 0,
            .events = {},
            .allDayChips = {},
            .horizon = {}};
}

inline WidgetTask task(std::string id, std::optional<Instant> deadline) {
    return {.id = id, .summary = "Task " + id, .deadline = deadline, .priorityRank = 0, .priorityScore = 0.5};
}

inline WidgetEvent event(std::string id, Instant start, std::optional<Instant> end) {
    return {.id = id, .title = "Event " + id, .start = start, .end = end, .linkedOpenTaskCount = 0};
}

inline SnapshotEntry entry(WidgetSnapshot snapshot, Instant date) {
    return {date, std::make_shared<const WidgetSnapshot>(std::move(snapshot))};
}

/// Every element of a tree, depth first: the order in which a user reads.
std::vector<Element> flattened(const Element& element);

/// The texts of a tree in reading order; a countdown reads "countdown".
std::vector<std::string> texts(const Element& element);

/// All elements of one kind, in reading order.
template <typename Kind>
std::vector<Kind> all(const Element& element) {
    std::vector<Kind> found;
    for (const Element& each : flattened(element))
        if (const auto* kind = std::get_if<Kind>(&each.kind))
            found.push_back(*kind);
    return found;
}

/// The text element that shows exactly this text; the test fails when there is none.
Text textNamed(const Element& element, const std::string& text);

} // namespace vantel::testing
