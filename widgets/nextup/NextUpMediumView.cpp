#include "widgets/nextup/NextUpMediumView.h"

#include "widgets/Elements.h"
#include "widgets/JoinCapsule.h"
#include "widgets/MonoFooter.h"
#include "widgets/WTokens.h"
#include "widgets/WidgetFormat.h"

namespace vantel {

namespace {

constexpr std::size_t rowLimit = 3;
constexpr double timeColumnWidth = 36;
constexpr double timeGap = 4; ///< so that a time on a twelve-hour clock does not touch the title
constexpr PrimaryColor quietColor{0.45};

Element timeColumn(const WidgetEvent& event, const ViewContext& context) {
    const TextStyle style{.font = {.size = 10, .design = FontDesign::monospaced},
                          .color = quietColor,
                          .lineLimit = 1,
                          .minimumScaleFactor = 0.6};
    const std::string time = WidgetFormat::time(event.start, context.calendar, context.formats);
    return framed(padded({Text{time, style}}, {.trailing = timeGap}),
                  {.width = timeColumnWidth, .alignment = StackAlignment::leading});
}

Element textColumn(const WidgetEvent& event, bool isNext, const Formats& formats) {
    const TextStyle titleStyle{.font = {11.5, isNext ? FontWeight::semibold : FontWeight::regular},
                               .color = PrimaryColor{isNext ? 1 : 0.85},
                               .lineLimit = 1};
    std::vector<Element> lines = {{Text{event.title, titleStyle}}};
    if (isNext)
        if (const auto line = subtitle(event, formats))
            lines.push_back(padded(
                {Text{*line, {.font = {9.5}, .color = WTokens::textSecondary, .lineLimit = 1}}}, {.top = 1}));
    return {Column{.children = std::move(lines), .alignment = HorizontalAlignment::leading, .spacing = 0}};
}

std::optional<Element> trailingElement(const WidgetEvent& event, bool isNext, const Formats& formats) {
    if (isNext && event.joinURL)
        return element(JoinCapsule{*event.joinURL, std::nullopt, true, false}, formats);
    if (!isNext && event.joinProvider)
        return Element{Text{*event.joinProvider, {.font = {9.5}, .color = quietColor, .lineLimit = 1}}};
    return std::nullopt;
}

Element eventRow(const WidgetEvent& event, bool isNext, const ViewContext& context) {
    std::vector<Element> parts = {timeColumn(event, context), textColumn(event, isNext, context.formats)};
    if (const auto trailing = trailingElement(event, isNext, context.formats)) {
        parts.push_back({Spacer{.minLength = 8}});
        parts.push_back(*trailing);
    }
    return {Row{.children = std::move(parts), .alignment = VerticalAlignment::top, .spacing = 0}};
}

std::vector<Element> agenda(const NextUpMediumView& view, const ViewContext& context) {
    std::vector<Element> lines;
    for (std::size_t i = 0; i < std::min(view.today.size(), rowLimit); ++i) {
        if (i > 0)
            lines.push_back(padded({Rule{.color = WTokens::hairline}}, Padding::symmetric(0, 7)));
        lines.push_back(eventRow(view.today[i], i == 0, context));
    }
    return lines;
}

std::vector<Element> emptyDay(const NextUpMediumView& view, const ViewContext& context) {
    const Formats& formats = context.formats;
    std::vector<Element> lines = {
        {Text{formats.translated("Done for today"), {.font = {12.5, FontWeight::semibold}, .lineLimit = 1}}}};
    if (const WidgetEvent* next = nextEvent(view.snapshot, view.date)) {
        const std::string text = nextEventText(*next, view.date, context) + " · " +
                                 WidgetFormat::time(next->start, context.calendar, formats);
        const TextStyle style{.font = {10}, .color = WTokens::textSecondary, .lineLimit = 1};
        lines.push_back(padded({Text{text, style}}, {.top = 6}));
    }
    return lines;
}

} // namespace

Element element(const NextUpMediumView& view, const ViewContext& context) {
    std::vector<Element> lines = view.today.empty() ? emptyDay(view, context) : agenda(view, context);
    lines.push_back({Spacer{}});
    lines.push_back(monoFooter(footerText(view.today, view.snapshot, view.date, context)));
    return leadingCard(std::move(lines));
}

} // namespace vantel
