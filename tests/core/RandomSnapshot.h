#pragma once

#include "core/WidgetSnapshot.h"

#include <cmath>
#include <random>

namespace vantel::testing {

/// Snapshots in which every optional value is sometimes there and sometimes not, for properties of all of
/// them.
class RandomSnapshots {
public:
    explicit RandomSnapshots(std::mt19937_64& random)
        : m_random(random) {}

    WidgetSnapshot snapshot() {
        return {.version = integer(),
                .accountID = text(),
                .generatedAt = instant(),
                .lastSyncAt = maybe(&RandomSnapshots::instant),
                .tasks = several(&RandomSnapshots::task),
                .triageCount = integer(),
                .snoozedCount = integer(),
                .events = several(&RandomSnapshots::event),
                .allDayChips = several(&RandomSnapshots::chip),
                .horizon = several(&RandomSnapshots::horizonItem),
                .recap = maybe(&RandomSnapshots::recap)};
    }

private:
    template <typename Value>
    std::optional<Value> maybe(Value (RandomSnapshots::*make)()) {
        return boolean() ? std::optional((this->*make)()) : std::nullopt;
    }

    template <typename Value>
    std::vector<Value> several(Value (RandomSnapshots::*make)()) {
        std::vector<Value> values;
        while (m_random() % 4 != 0)
            values.push_back((this->*make)());
        return values;
    }

    WidgetTask task() {
        return {.id = text(),
                .summary = text(),
                .deadline = maybe(&RandomSnapshots::instant),
                .deadlineImplied = maybe(&RandomSnapshots::boolean),
                .priorityRank = integer(),
                .priorityScore = number(),
                .completedAt = maybe(&RandomSnapshots::instant)};
    }

    WidgetEvent event() {
        return {.id = text(),
                .title = text(),
                .start = instant(),
                .end = maybe(&RandomSnapshots::instant),
                .location = maybe(&RandomSnapshots::text),
                .joinURL = maybe(&RandomSnapshots::url),
                .joinProvider = maybe(&RandomSnapshots::text),
                .linkedOpenTaskCount = integer()};
    }

    WidgetChip chip() { return {.text = text()}; }

    WidgetHorizonItem horizonItem() {
        return {.id = text(),
                .day = instant(),
                .label = text(),
                .subject = text(),
                .kind = static_cast<WidgetHorizonItem::Kind>(m_random() % 4),
                .endDay = maybe(&RandomSnapshots::instant)};
    }

    WidgetRecap recap() {
        return {.received = integer(),
                .processed = integer(),
                .actionItems = integer(),
                .spamFiltered = integer(),
                .tasksCompleted = integer(),
                .previousProcessed = integer()};
    }

    bool boolean() { return m_random() % 2 == 0; }

    std::int64_t integer() {
        const auto bits = static_cast<std::int64_t>(m_random());
        return bits >> (m_random() % 64);
    }

    double number() {
        return std::ldexp(static_cast<double>(integer()), static_cast<int>(m_random() % 200) - 100);
    }

    Instant instant() {
        return instantFromReference(boolean() ? number() : static_cast<double>(m_random() % 1'000'000'000));
    }

    std::string text() {
        static const std::vector<std::string> pieces = {
            "a", "Lab", " ", "ü", "🧪", "\"", "\\", "\n", std::string(1, '\0'), "{"};
        std::string text;
        while (m_random() % 5 != 0)
            text += pieces[m_random() % pieces.size()];
        return text;
    }

    Url url() { return *parseUrl("https://zoom.us/" + text()); }

    std::mt19937_64& m_random;
};

inline WidgetSnapshot randomSnapshot(std::mt19937_64& random) {
    return RandomSnapshots(random).snapshot();
}

} // namespace vantel::testing
