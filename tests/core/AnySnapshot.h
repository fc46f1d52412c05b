#pragma once

#include "core/WidgetSnapshot.h"

namespace vantel::testing {

/// A snapshot made piece by piece of what a source of choices gives: any `integer`, `number`, `instant` and
/// `text`, a `boolean`, a number `below` another, and whether a list with so many records `hasMore` of them.
template <typename Choices>
class AnySnapshot {
public:
    explicit AnySnapshot(Choices& choices)
        : m_choices(choices) {}

    WidgetSnapshot snapshot() {
        return {.version = integer(),
                .accountID = text(),
                .generatedAt = instant(),
                .lastSyncAt = maybe(&AnySnapshot::instant),
                .tasks = several(&AnySnapshot::task),
                .triageCount = integer(),
                .snoozedCount = integer(),
                .events = several(&AnySnapshot::event),
                .allDayChips = several(&AnySnapshot::chip),
                .horizon = several(&AnySnapshot::horizonItem),
                .recap = maybe(&AnySnapshot::recap)};
    }

private:
    template <typename Value>
    std::optional<Value> maybe(Value (AnySnapshot::*make)()) {
        return boolean() ? std::optional((this->*make)()) : std::nullopt;
    }

    template <typename Value>
    std::vector<Value> several(Value (AnySnapshot::*make)()) {
        std::vector<Value> values;
        while (m_choices.hasMore(values.size()))
            values.push_back((this->*make)());
        return values;
    }

    WidgetTask task() {
        return {.id = text(),
                .summary = text(),
                .deadline = maybe(&AnySnapshot::instant),
                .deadlineImplied = maybe(&AnySnapshot::boolean),
                .priorityRank = integer(),
                .priorityScore = m_choices.number(),
                .completedAt = maybe(&AnySnapshot::instant)};
    }

    WidgetEvent event() {
        return {.id = text(),
                .title = text(),
                .start = instant(),
                .end = maybe(&AnySnapshot::instant),
                .location = maybe(&AnySnapshot::text),
                .joinURL = boolean() ? parseUrl("https:" + text()) : std::nullopt,
                .joinProvider = maybe(&AnySnapshot::text),
                .linkedOpenTaskCount = integer()};
    }

    WidgetChip chip() { return {.text = text()}; }

    WidgetHorizonItem horizonItem() {
        return {.id = text(),
                .day = instant(),
                .label = text(),
                .subject = text(),
                .kind = static_cast<WidgetHorizonItem::Kind>(m_choices.below(4)),
                .endDay = maybe(&AnySnapshot::instant)};
    }

    WidgetRecap recap() {
        return {.received = integer(),
                .processed = integer(),
                .actionItems = integer(),
                .spamFiltered = integer(),
                .tasksCompleted = integer(),
                .previousProcessed = integer()};
    }

    bool boolean() { return m_choices.boolean(); }
    std::int64_t integer() { return m_choices.integer(); }
    Instant instant() { return m_choices.instant(); }
    std::string text() { return m_choices.text(); }

    Choices& m_choices;
};

} // namespace vantel::testing
