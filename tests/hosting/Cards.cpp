#include "tests/hosting/Cards.h"

#include "platform/DisplayWidth.h"

#include <algorithm>

namespace vantel::testing {

namespace {

constexpr std::size_t marginBytes = 5; // the edge, three bytes long, and two blanks

std::string withoutTrailingBlanks(const std::string& line) {
    return line.substr(0, line.find_last_not_of(' ') + 1);
}

} // namespace

std::string printed(const WidgetView& view, TerminalColors colors, const Appearance& appearance) {
    const PlainFormats formats;
    return viewText(view, {.title = "Test", .formats = formats, .appearance = appearance, .colors = colors});
}

std::vector<std::string> lines(const std::string& text) {
    std::vector<std::string> result;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        result.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    return result;
}

std::vector<std::string> cardLines(const std::string& printedView) {
    std::vector<std::string> result = lines(printedView);
    const auto last =
        std::ranges::find_if(result, [](const std::string& line) { return line.contains("╯"); });
    result.erase(last == result.end() ? last : last + 1, result.end());
    return result;
}

std::vector<std::string> insideLines(const Element& content, WidgetFamily family) {
    const std::vector<std::string> card = cardLines(printed(view(content, family)));
    std::vector<std::string> result;
    for (std::size_t i = 2; i + 2 < card.size(); ++i)
        result.push_back(
            withoutTrailingBlanks(card[i].substr(marginBytes, card[i].size() - 2 * marginBytes)));
    while (!result.empty() && result.back().empty())
        result.pop_back();
    return result;
}

} // namespace vantel::testing
