#pragma once

#include "tests/core/AnySnapshot.h"

#include <cmath>
#include <random>

namespace vantel::testing {

/// Choices by chance, for properties of all snapshots.
class RandomChoices {
public:
    explicit RandomChoices(std::mt19937_64& random)
        : m_random(random) {}

    bool boolean() { return below(2) == 0; }
    std::uint64_t below(std::uint64_t limit) { return m_random() % limit; }
    bool hasMore(std::size_t) { return below(4) != 0; }

    std::int64_t integer() {
        const auto bits = static_cast<std::int64_t>(m_random());
        return bits >> below(64);
    }

    double number() { return std::ldexp(static_cast<double>(integer()), static_cast<int>(below(200)) - 100); }

    Instant instant() {
        return instantFromReference(boolean() ? number() : static_cast<double>(below(1'000'000'000)));
    }

    std::string text() {
        static const std::vector<std::string> pieces = {
            "a", "Lab", " ", "ü", "🧪", "\"", "\\", "\n", std::string(1, '\0'), "{"};
        std::string text;
        while (below(5) != 0)
            text += pieces[below(pieces.size())];
        return text;
    }

private:
    std::mt19937_64& m_random;
};

inline WidgetSnapshot randomSnapshot(std::mt19937_64& random) {
    RandomChoices choices(random);
    return AnySnapshot(choices).snapshot();
}

} // namespace vantel::testing
