#pragma once

#include <cstddef>
#include <string_view>

namespace vantel {

/// A code point, and the bytes that hold it. Bytes that are not UTF-8 read as U+FFFD, at least one at a time.
struct CodePoint {
    char32_t value;
    std::size_t length;

    bool operator==(const CodePoint&) const = default;
};

inline constexpr char32_t replacementCharacter = 0xFFFD;

/// The first code point of a text, which must not be empty.
CodePoint firstCodePoint(std::string_view text);

/// The longest beginning of at most `size` bytes that cuts no character in two.
std::string_view leadingBytes(std::string_view text, std::size_t size);

} // namespace vantel
