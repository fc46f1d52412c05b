#include "platform/Utf8.h"

#include <algorithm>
#include <cstdint>

#include <unicode/utf8.h>

// The macros of ICU narrow their intermediate values on purpose.
#pragma GCC diagnostic ignored "-Wconversion"

namespace vantel {

CodePoint firstCodePoint(std::string_view text) {
    constexpr std::size_t longest = 4;
    const auto available = static_cast<std::int32_t>(std::min(text.size(), longest));
    std::int32_t length = 0;
    UChar32 value = 0;
    // NOLINTNEXTLINE(bugprone-inc-dec-in-conditions): the macro is ICU's.
    U8_NEXT_OR_FFFD(text.data(), length, available, value);
    return {static_cast<char32_t>(value), static_cast<std::size_t>(length)};
}

std::string_view leadingBytes(std::string_view text, std::size_t size) {
    if (text.size() <= size)
        return text;
    for (std::size_t back = 0; back < 4 && back <= size; ++back)
        if (U8_IS_TRAIL(text[size - back]) == 0)
            return text.substr(0, size - back);
    return text.substr(0, size);
}

} // namespace vantel
