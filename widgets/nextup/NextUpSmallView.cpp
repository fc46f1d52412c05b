#include "widgets/nextup/NextUpSmallView.h"

#include "widgets/Elements.h"
#include "widgets/JoinCapsule.h"
#include "widgets/MonoLabel.h"
#include "widgets/WTokens.h"
#include "widgets/WidgetFormat.h"

namespace vantel {

namespace {

constexpr TextStyle countdownStyle{
    .font = {22, FontWeight::bold}, .tracking = -0.4, .color = PrimaryColor{}, .lineLimit = 1};

Element evening(const NextUpSmallView& view, const ViewContext& context) {
    const Formats& formats = context.formats;
    const Element done = {Text{formats.translated("Done for today"), {.font = {12.5, FontWeight::semibold}}}};
    std::vector<Element> lines = {{Symbol{.name = "moon", .size = 20}}, padded(done, {.top = 4})};
    if (const WidgetEvent* next = nextEvent(view.snapshot, view.date)) {
        const TextStyle style{.font = {10}, .color = WTokens::textSecondary, .lineLimit = 2};
        lines.push_back(padded({Text{nextEventText(*next, view.date, context), style}}, {.top = 6}));
        lines.push_back({Text{WidgetFormat::time(next->start, context.calendar, formats), style}});
    }
    return centeredCard(std::move(lines));
}

Element location(const std::string& text, Color color, double top) {
    return padded({Text{text, {.font = {10}, .color = color, .lineLimit = 1}}}, {.top = top});
}

void addJoinCapsule(std::vector<Element>& lines, const WidgetEvent& event, bool inverted,
                    const Formats& formats) {
    if (!event.joinURL)
        return;
    lines.push_back({Spacer{}});
    lines.push_back(element(JoinCapsule{*event.joinURL, event.joinProvider, false, inverted}, formats));
}

Element imminentCard(const WidgetEvent& event, const Formats& formats) {
    const TextStyle titleStyle{
        .font = {22, FontWeight::bold}, .tracking = -0.4, .color = WTokens::paper, .lineLimit = 2};
    std::vector<Element> lines = {monoLabel(formats.translated("Starting now"), WTokens::alarmRed, formats),
                                  padded({Text{event.title, titleStyle}}, {.top = 7})};
    if (event.location)
        lines.push_back(location(*event.location, WTokens::paper.at(0.55), 4));
    addJoinCapsule(lines, event, true, formats);
    return leadingCard(std::move(lines));
}

Element countdown(const WidgetEvent& event, Instant now, const Formats& formats) {
    if (event.start <= now)
        return {Text{formats.translated("Now"), countdownStyle}};
    const Element in = {Text{formats.translated("in"), {.font = {14, FontWeight::semibold}, .lineLimit = 1}}};
    return {Row{.children = {in, {RelativeTime{event.start, countdownStyle}}},
                .alignment = VerticalAlignment::firstTextBaseline,
                .spacing = 5}};
}

Element eventCard(const WidgetEvent& event, Instant now, const ViewContext& context) {
    const Formats& formats = context.formats;
    const std::string start = WidgetFormat::time(event.start, context.calendar, formats);
    const TextStyle titleStyle{.font = {11.5, FontWeight::semibold}, .lineLimit = 2};
    std::vector<Element> lines = {
        monoLabel(filled(formats.translated("Next · %s"), {start}), captionColor, formats),
        padded(countdown(event, now, formats), {.top = 7}),
        padded({Text{event.title, titleStyle}}, {.top = 6})};
    if (event.location)
        lines.push_back(location(*event.location, WTokens::textSecondary, 1));
    addJoinCapsule(lines, event, false, formats);
    return leadingCard(std::move(lines));
}

} // namespace

Element element(const NextUpSmallView& view, const ViewContext& context) {
    if (view.today.empty())
        return evening(view, context);
    const WidgetEvent& event = view.today.front();
    return view.isImminent ? imminentCard(event, context.formats) : eventCard(event, view.date, context);
}

} // namespace vantel
