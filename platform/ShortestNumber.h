#pragma once

#include <cstddef>

namespace vantel {

/// No number needs more characters than this.
inline constexpr std::size_t longestNumber = 32;

/// Writes the shortest text that reads back as the same finite number and gives where it ends: what
/// std::to_chars writes, in a third of its time for numbers of few decimals, as instants and scores are.
char* writeShortest(double number, char* out);

} // namespace vantel
