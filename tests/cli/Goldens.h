#pragma once

#include <string>

namespace vantel::testing {

enum class GoldenMode { compare, rebaseline };

struct Goldens {
    GoldenMode mode = GoldenMode::compare;
};

/// How the goldens of this run are treated.
Goldens& goldens();

/// Compares a text with the golden of that name in tests/data/golden. A missing golden fails the test.
void expectGolden(const std::string& name, const std::string& actual);

} // namespace vantel::testing
