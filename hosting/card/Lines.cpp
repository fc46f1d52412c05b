#include "hosting/card/Lines.h"

#include "platform/DisplayWidth.h"
#include "platform/Utf8.h"
#include "platform/VisibleText.h"

#include <algorithm>

namespace vantel::card {

namespace {

constexpr std::size_t mostBytes = 4096;

bool mayBreakBetween(const Glyph& previous, const Glyph& next) {
    const bool hasWideSide = previous.width == 2 || next.width == 2;
    return previous.text == " " || next.text == " " || previous.text == "-" || hasWideSide;
}

/// The bytes of `text` before its last break in the first `limit` bytes or at their end, or none.
std::size_t lastBreak(std::string_view text, std::size_t limit) {
    std::size_t found = 0;
    Glyph previous = firstGlyph(text);
    for (std::size_t end = previous.text.size(); end <= limit && end < text.size();) {
        const Glyph next = firstGlyph(text.substr(end));
        if (mayBreakBetween(previous, next))
            found = end;
        end += next.text.size();
        previous = next;
    }
    return found;
}

/// At least one glyph, so that there is an end to it where no glyph fits.
std::string_view firstLine(std::string_view text, int width) {
    const std::string_view fitting = cutToWidth(text, width);
    if (fitting.size() == text.size())
        return fitting;
    if (const std::size_t end = lastBreak(text, fitting.size()); end != 0)
        return fitting.substr(0, end);
    return fitting.empty() ? firstGlyph(text).text : fitting;
}

std::string_view withoutLeadingBlanks(std::string_view text) {
    return text.substr(std::min(text.find_first_not_of(' '), text.size()));
}

std::string_view withoutTrailingBlanks(std::string_view text) {
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

} // namespace

std::string cardText(std::string_view text) {
    const std::string_view beginning = leadingBytes(text, mostBytes);
    std::string result = withSteadyWidth(visibleText(beginning));
    return beginning.size() == text.size() ? result : result.append("…");
}

std::vector<std::string> wrapped(std::string_view text, int width, int mostLines) {
    std::vector<std::string> lines;
    while (displayWidth(text) > width && static_cast<int>(lines.size()) + 1 < mostLines) {
        const std::string_view line = firstLine(text, width);
        lines.emplace_back(withoutTrailingBlanks(line));
        text = withoutLeadingBlanks(text.substr(line.size()));
    }
    if (!text.empty() || lines.empty())
        lines.push_back(elided(text, width));
    return lines;
}

} // namespace vantel::card
