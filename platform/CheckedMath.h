#pragma once

#include <cmath>
#include <concepts>
#include <cstdint>
#include <optional>

namespace vantel {

/// The value without its fraction, or nothing when it is not finite or does not fit.
inline std::optional<std::int64_t> truncatedToInteger(double value) {
    constexpr double bound = 9223372036854775808.0; // 2^63, the first double that does not fit
    const double whole = std::trunc(value);
    const bool fits = whole >= -bound && whole < bound; // never true of a NaN
    if (!fits)
        return std::nullopt;
    return static_cast<std::int64_t>(whole);
}

/// The sum, or nothing when it overflows.
template <std::signed_integral Integer>
constexpr std::optional<Integer> checkedSum(Integer a, Integer b) {
    Integer sum{};
    if (__builtin_add_overflow(a, b, &sum))
        return std::nullopt;
    return sum;
}

} // namespace vantel
