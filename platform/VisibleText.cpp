#include "platform/VisibleText.h"

#include "platform/DisplayWidth.h"
#include "platform/Utf8.h"

namespace vantel {

namespace {

constexpr int mostMarks = 4;
constexpr std::string_view replacement = "\uFFFD";

bool isWithin(char32_t character, char32_t first, char32_t last) {
    return character >= first && character <= last;
}

bool isControl(char32_t character) {
    return character < 0x20 || isWithin(character, 0x7F, 0x9F);
}

bool isDirectionControl(char32_t character) {
    return character == 0x061C || isWithin(character, 0x200E, 0x200F) ||
           isWithin(character, 0x202A, 0x202E) || isWithin(character, 0x2066, 0x2069);
}

bool isOldFormatControl(char32_t character) {
    return isWithin(character, 0x206A, 0x206F) || isWithin(character, 0xFFF9, 0xFFFB);
}

bool isSeparator(char32_t character) {
    return isWithin(character, 0x2028, 0x2029);
}

std::string controlPicture(char32_t character) {
    constexpr std::string_view beforeLast = "\xE2\x90"; // the pictures begin at U+2400
    if (character < 0x20)
        return std::string(beforeLast) + static_cast<char>(0x80 + character);
    return std::string(character == 0x7F ? std::string_view("\u2421") : replacement);
}

/// How a character is shown, where `bytes` is how it stands in the text.
std::string shown(char32_t character, std::string_view bytes) {
    if (isControl(character))
        return controlPicture(character);
    if (character == replacementCharacter || mayBeObeyed(character))
        return std::string(replacement);
    return std::string(bytes);
}

bool takesNoRoom(std::string_view visible) {
    return displayWidth(visible) == 0;
}

} // namespace

bool mayBeObeyed(char32_t character) {
    return isControl(character) || isDirectionControl(character) || isOldFormatControl(character) ||
           isSeparator(character);
}

std::string visibleText(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    int marks = mostMarks;
    while (!text.empty()) {
        const CodePoint character = firstCodePoint(text);
        const std::string visible = shown(character.value, text.substr(0, character.length));
        text.remove_prefix(character.length);
        marks = takesNoRoom(visible) ? marks + 1 : 0;
        if (marks <= mostMarks)
            result += visible;
    }
    return result;
}

} // namespace vantel
