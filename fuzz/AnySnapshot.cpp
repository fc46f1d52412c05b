#include "fuzz/AnySnapshot.h"

#include "core/SnapshotDocument.h"
#include "tests/core/AnySnapshot.h"

#include <cmath>

namespace vantel {

namespace {

double finiteNumber(FuzzedDataProvider& input) {
    const double number = input.ConsumeFloatingPoint<double>();
    return std::isfinite(number) ? number : 0;
}

/// Choices by the input, so that nearly every one is a snapshot.
class FuzzedChoices {
public:
    FuzzedChoices(FuzzedDataProvider& input, Instant now)
        : m_input(input)
        , m_now(now) {}

    bool boolean() { return m_input.ConsumeBool(); }
    int below(int limit) { return m_input.ConsumeIntegralInRange(0, limit - 1); }
    bool hasMore(std::size_t count) { return count < 6 && below(4) != 0; }
    double number() { return finiteNumber(m_input); }
    std::string text() { return m_input.ConsumeRandomLengthString(60); }

    std::int64_t integer() {
        return boolean() ? m_input.ConsumeIntegral<std::int8_t>() : m_input.ConsumeIntegral<std::int64_t>();
    }

    Instant instant() {
        constexpr int twoDays = 2 * 86'400;
        if (boolean())
            return m_now + Seconds(m_input.ConsumeIntegralInRange(-twoDays, twoDays));
        return anyInstant(m_input);
    }

private:
    FuzzedDataProvider& m_input;
    Instant m_now;
};

Result<std::string> anyDocument(FuzzedDataProvider& input, Instant now) {
    if (!input.ConsumeBool())
        return input.ConsumeRemainingBytesAsString();
    FuzzedChoices choices(input, now);
    return encodeSnapshot(testing::AnySnapshot(choices).snapshot());
}

} // namespace

Instant anyInstant(FuzzedDataProvider& input) {
    constexpr int fiftyYears = 50 * 365 * 86'400;
    if (input.ConsumeBool())
        return instantFromReference(input.ConsumeIntegralInRange(0, fiftyYears));
    return instantFromReference(finiteNumber(input));
}

std::optional<WidgetSnapshot> anySnapshot(FuzzedDataProvider& input, Instant now) {
    const auto document = anyDocument(input, now);
    if (!document)
        return std::nullopt;
    auto snapshot = decodeSnapshot(*document);
    return snapshot ? std::optional(std::move(*snapshot)) : std::nullopt;
}

} // namespace vantel
