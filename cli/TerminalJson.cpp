#include "cli/TerminalJson.h"

#include "platform/Utf8.h"
#include "platform/VisibleText.h"

#include <array>
#include <cstdio>

namespace vantel {

namespace {

std::string escaped(char32_t character) {
    std::array<char, 7> text{};
    std::snprintf(text.data(), text.size(), "\\u%04x", static_cast<unsigned>(character));
    return text.data();
}

} // namespace

std::string terminalJson(std::string_view json) {
    constexpr std::string_view firstBytes = "\x7F\xC2\xD8\xE2\xEF"; // of what may be obeyed
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
