#include "cli/TerminalJson.h"

#include "platform/Utf8.h"

#include <array>
#include <cstdio>

namespace vantel {

namespace {

bool isWithin(char32_t character, char32_t first, char32_t last) {
    return character >= first && character <= last;
}

bool mayBeObeyed(char32_t character) {
    return isWithin(character, 0x7F, 0x9F) || character == 0x061C || isWithin(character, 0x200E, 0x200F) ||
           isWithin(character, 0x2028, 0x202E) || isWithin(character, 0x2066, 0x2069);
}

std::string escaped(char32_t character) {
    std::array<char, 7> text{};
    std::snprintf(text.data(), text.size(), "\\u%04x", static_cast<unsigned>(character));
    return text.data();
}

} // namespace

std::string terminalJson(std::string_view json) {
    constexpr std::string_view firstBytes = "\x7F\xC2\xD8\xE2"; // of the characters that matter
    std::string result;
    result.reserve(json.size());
    while (true) {
        const std::size_t next = json.find_first_of(firstBytes);
        result += json.substr(0, next);
        if (next == std::string_view::npos)
            return result;
        json.remove_prefix(next);
        const CodePoint character = firstCodePoint(json);
        if (mayBeObeyed(character.value))
            result += escaped(character.value);
        else
            result += json.substr(0, character.length);
        json.remove_prefix(character.length);
    }
}

} // namespace vantel
