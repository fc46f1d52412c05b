#include "platform/ShortestNumber.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <optional>

namespace vantel {

namespace {

constexpr int decimals = 4;
constexpr std::uint64_t scale = 10'000;

/// A number's size in units of its last decimal, if it has no more than four and so few digits that no other
/// number has the same ones.
std::optional<std::uint64_t> scaled(double size) {
    constexpr double below = 1e11; // fifteen digits with the decimals
    if (!(size < below))
        return std::nullopt;
    // NOLINTNEXTLINE(bugprone-incorrect-roundings): a number that rounds wrongly fails the comparison below.
    const auto result = static_cast<std::uint64_t>(size * scale + 0.5);
    return static_cast<double>(result) / scale == size ? std::optional(result) : std::nullopt;
}

/// Whether the digits without an exponent are no longer than those with one.
bool isShortestPlain(std::uint64_t scaled) {
    constexpr std::uint64_t thousandth = 10;
    constexpr std::uint64_t fiveZeros = 100'000 * scale;
    return scaled >= thousandth && scaled % fiveZeros != 0;
}

char* writeDecimals(std::uint64_t fraction, char* out) {
    *out++ = '.';
    char* const end = out + decimals;
    for (char* digit = end; digit != out; fraction /= 10)
        *--digit = static_cast<char>('0' + fraction % 10);
    char* last = end;
    while (last[-1] == '0')
        --last;
    return last;
}

} // namespace

char* writeShortest(double number, char* out) {
    const auto digits = scaled(std::abs(number));
    if (!digits || !isShortestPlain(*digits))
        return std::to_chars(out, out + longestNumber, number).ptr;
    if (number < 0)
        *out++ = '-';
    out = std::to_chars(out, out + longestNumber, *digits / scale).ptr;
    return *digits % scale == 0 ? out : writeDecimals(*digits % scale, out);
}

} // namespace vantel
