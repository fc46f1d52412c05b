#include "fuzz/AnySnapshot.h"

#include "core/SnapshotDocument.h"

#include <cmath>

namespace vantel {

namespace {

double finiteNumber(FuzzedDataProvider& input) {
    const double number = input.ConsumeFloatingPoint<double>();
    return std::isfinite(number) ? number : 0;
}

/// A snapshot made piece by piece, so that nearly every input is one.
class AnySnapshot {
public:
    AnySnapshot(FuzzedDataProvider& input, Instant now)
        : m_input(input)
        , m_now(now) {}

    WidgetSnapshot snapshot() {
        return {.version = 1,
                .accountID = "a",
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
        return m_input.ConsumeBool() ? std::optional((this->*make)()) : std::nullopt;
    }

    template <typename Value>
    std::vector<Value> several(Value (AnySnapshot::*make)()) {
        std::vector<Value> values;
        for (int count = m_input.ConsumeIntegralInRange(0, 6); count > 0; --count)
            values.push_back((this->*make)());
        return values;
    }

    WidgetTask task() {
        return {.id = text(),
                .summary = text(),
                .deadline = maybe(&AnySnapshot::instant),
                .priorityRank = 0,
                .priorityScore = finiteNumber(m_input),
                .completedAt = maybe(&AnySnapshot::instant)};
    }

    WidgetEvent event() {
        return {.id = text(),
                .title = text(),
                .start = instant(),
                .end = maybe(&AnySnapshot::instant),
                .location = maybe(&AnySnapshot::text),
                .joinURL = parseUrl("https:" + text()),
                .joinProvider = maybe(&AnySnapshot::text),
                .linkedOpenTaskCount = integer()};
    }

    WidgetChip chip() { return {.text = text()}; }

    WidgetHorizonItem horizonItem() {
        return {.id = text(),
                .day = instant(),
                .label = text(),
                .subject = text(),
                .kind = static_cast<WidgetHorizonItem::Kind>(m_input.ConsumeIntegralInRange(0, 3)),
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

    std::int64_t integer() {
        return m_input.ConsumeBool() ? m_input.ConsumeIntegral<std::int8_t>()
                                     : m_input.ConsumeIntegral<std::int64_t>();
    }

    Instant instant() {
        constexpr int twoDays = 2 * 86'400;
        if (m_input.ConsumeBool())
            return m_now + Seconds(m_input.ConsumeIntegralInRange(-twoDays, twoDays));
        return anyInstant(m_input);
    }

    std::string text() { return m_input.ConsumeRandomLengthString(60); }

    FuzzedDataProvider& m_input;
    Instant m_now;
};

} // namespace

Instant anyInstant(FuzzedDataProvider& input) {
    constexpr int fiftyYears = 50 * 365 * 86'400;
    if (input.ConsumeBool())
        return instantFromReference(input.ConsumeIntegralInRange(0, fiftyYears));
    return instantFromReference(finiteNumber(input));
}

std::optional<WidgetSnapshot> anySnapshot(FuzzedDataProvider& input, Instant now) {
    const auto document = input.ConsumeBool() ? encodeSnapshot(AnySnapshot(input, now).snapshot())
                                              : Result<std::string>(input.ConsumeRemainingBytesAsString());
    if (!document)
        return std::nullopt;
    auto snapshot = decodeSnapshot(*document);
    return snapshot ? std::optional(std::move(*snapshot)) : std::nullopt;
}

} // namespace vantel
