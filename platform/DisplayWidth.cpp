#include "platform/DisplayWidth.h"

#include "platform/Utf8.h"

#include <unicode/uchar.h>

namespace vantel {

namespace {

constexpr std::string_view ellipsis = "…";
constexpr char32_t zeroWidthNonJoiner = 0x200C;
constexpr char32_t zeroWidthJoiner = 0x200D;

bool has(char32_t character, UProperty property) {
    return u_hasBinaryProperty(static_cast<UChar32>(character), property) != 0;
}

bool isMark(char32_t character) {
    const auto category = u_charType(static_cast<UChar32>(character));
    if (category == U_FORMAT_CHAR)
        return !has(character, UCHAR_PREPENDED_CONCATENATION_MARK);
    return category == U_NON_SPACING_MARK || category == U_ENCLOSING_MARK;
}

/// The vowels and final consonants that complete a Korean syllable in the cell of its first letter.
bool isSyllableEnd(char32_t character) {
    const auto type = u_getIntPropertyValue(static_cast<UChar32>(character), UCHAR_HANGUL_SYLLABLE_TYPE);
    return type == U_HST_VOWEL_JAMO || type == U_HST_TRAILING_JAMO;
}

int width(char32_t character) {
    if (character < 0x300)
        return 1;
    if (isMark(character) || isSyllableEnd(character))
        return 0;
    const auto eastAsian = u_getIntPropertyValue(static_cast<UChar32>(character), UCHAR_EAST_ASIAN_WIDTH);
    return eastAsian == U_EA_WIDE || eastAsian == U_EA_FULLWIDTH ? 2 : 1;
}

bool isFlagHalf(char32_t character) {
    return has(character, UCHAR_REGIONAL_INDICATOR);
}

std::size_t marksLength(std::string_view text) {
    std::size_t length = 0;
    while (length < text.size()) {
        const CodePoint mark = firstCodePoint(text.substr(length));
        if (width(mark.value) != 0)
            break;
        length += mark.length;
    }
    return length;
}

std::size_t secondFlagHalfLength(std::string_view text) {
    if (text.empty())
        return 0;
    const CodePoint next = firstCodePoint(text);
    return isFlagHalf(next.value) ? next.length : 0;
}

/// Whether a character says nothing by itself and has no width on which terminals agree, after `previous`.
bool isUnsteady(char32_t character, char32_t previous) {
    if (character == zeroWidthNonJoiner)
        return false;
    if (character == zeroWidthJoiner || has(character, UCHAR_EMOJI_MODIFIER))
        return has(previous, UCHAR_EXTENDED_PICTOGRAPHIC);
    return has(character, UCHAR_DEFAULT_IGNORABLE_CODE_POINT);
}

} // namespace

Glyph firstGlyph(std::string_view text) {
    const CodePoint base = firstCodePoint(text);
    const std::string_view rest = text.substr(base.length);
    if (const std::size_t second = secondFlagHalfLength(rest); second != 0 && isFlagHalf(base.value))
        return {text.substr(0, base.length + second), 2};
    return {text.substr(0, base.length + marksLength(rest)), width(base.value)};
}

int displayWidth(std::string_view text) {
    int columns = 0;
    while (!text.empty()) {
        const CodePoint character = firstCodePoint(text);
        columns += width(character.value);
        text.remove_prefix(character.length);
    }
    return columns;
}

std::string_view cutToWidth(std::string_view text, int columns) {
    std::string_view rest = text;
    while (!rest.empty()) {
        const Glyph glyph = firstGlyph(rest);
        columns -= glyph.width;
        if (columns < 0)
            break;
        rest.remove_prefix(glyph.text.size());
    }
    return text.substr(0, text.size() - rest.size());
}

std::string elided(std::string_view text, int columns) {
    const std::string_view whole = cutToWidth(text, columns);
    if (whole.size() == text.size() || columns <= 0)
        return std::string(whole);
    std::string beginning(cutToWidth(text, columns - 1));
    beginning.erase(beginning.find_last_not_of(' ') + 1);
    return beginning.append(ellipsis);
}

std::string withSteadyWidth(std::string_view text) {
    std::string result;
    char32_t previous = 0;
    while (!text.empty()) {
        const CodePoint character = firstCodePoint(text);
        if (!isUnsteady(character.value, previous)) {
            result += text.substr(0, character.length);
            previous = character.value;
        }
        text.remove_prefix(character.length);
    }
    return result;
}

} // namespace vantel
