#include "widgets/focus/RecapColumn.h"

#include "widgets/Elements.h"
#include "widgets/MonoLabel.h"
#include "widgets/WTokens.h"

namespace vantel {

namespace {

/// In wide fonts and long languages the words become smaller before any is cut.
constexpr double smallestWords = 0.75;

TextStyle words(double size, const TokenColor& color) {
    return {.font = {size}, .color = color, .lineLimit = 1, .minimumScaleFactor = smallestWords};
}

Element recapRow(std::int64_t value, const std::string& label, const std::string& delta) {
    const std::string number = std::to_string(value);
    std::vector<Element> texts = {{Text{number, {.font = {16, FontWeight::semibold}, .lineLimit = 1}}},
                                  {Text{label, words(12, WTokens::textSecondary)}}};
    if (!delta.empty()) {
        texts.push_back({Spacer{}});
        texts.push_back({Text{delta, words(11, WTokens::textTertiary)}});
    }
    return {
        Row{.children = std::move(texts), .alignment = VerticalAlignment::firstTextBaseline, .spacing = 6}};
}

} // namespace

Element recapColumn(const WidgetRecap& recap, const Formats& formats) {
    const Element heading = monoLabel(formats.translated("This week"), captionColor, formats);
    const std::string delta = recapDelta(recap.processed, recap.previousProcessed, formats);
    return {Column{.children = {padded(heading, {.bottom = 4}),
                                recapRow(recap.processed, formats.translated("emails handled"), delta),
                                recapRow(recap.actionItems, formats.translated("needed action"), ""),
                                recapRow(recap.tasksCompleted, formats.translated("tasks completed"), "")},
                   .alignment = HorizontalAlignment::leading,
                   .spacing = 8}};
}

std::string recapDelta(std::int64_t now, std::int64_t before, const Formats& formats) {
    if (now == before)
        return "";
    // The distance of two 64-bit counts always fits without a sign.
    const auto a = static_cast<std::uint64_t>(now);
    const auto b = static_cast<std::uint64_t>(before);
    if (now > before)
        return filled(formats.translated("+%lld vs last week"), {std::to_string(a - b)});
    return filled(formats.translated("%lld vs last week"), {"-" + std::to_string(b - a)});
}

} // namespace vantel
