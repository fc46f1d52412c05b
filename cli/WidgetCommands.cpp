#include "cli/Answer.h"
#include "cli/Commands.h"
#include "cli/SnapshotSource.h"
#include "cli/WidgetNames.h"
#include "hosting/ViewJson.h"
#include "hosting/ViewText.h"
#include "widgets/VantelWidgetsBundle.h"

namespace vantel::commands {

namespace {

std::string joined(const std::vector<WidgetFamily>& families, std::string_view (*nameOf)(WidgetFamily)) {
    std::string text;
    for (const WidgetFamily family : families)
        text.append(text.empty() ? "" : ", ").append(nameOf(family));
    return text;
}

void writeWidget(JsonWriter& json, const StaticConfiguration& widget, const Formats& formats) {
    json.beginObject();
    json.field("kind", widget.kind);
    json.field("displayName", formats.translated(widget.displayName.c_str()));
    json.field("description", formats.translated(widget.description.c_str()));
    json.key("families");
    json.beginArray();
    for (const WidgetFamily family : widget.supportedFamilies)
        json.value(name(family));
    json.endArray();
    json.endObject();
}

std::string widgetText(const StaticConfiguration& widget, const Formats& formats) {
    return std::string(shortNameOf(widget.kind)) + " (" + joined(widget.supportedFamilies, shortName) +
           ")\n    " + formats.translated(widget.displayName.c_str()) + ": " +
           formats.translated(widget.description.c_str()) + "\n";
}

struct ViewRequest {
    StaticConfiguration widget;
    WidgetFamily family;
};

std::expected<ViewRequest, CommandFailure> viewRequest(const Arguments& arguments) {
    const WidgetBundle bundle = VantelWidgetsBundle::body();
    const std::string kind = arguments.kind.value_or("");
    const StaticConfiguration* widget = findWidget(bundle, kind);
    if (widget == nullptr)
        return unknownWidget("view", kind);
    const auto family = parseWidgetFamily(arguments.family);
    if (!family || !widget->supports(*family))
        return wrongUsage("view", "the widget " + kind + " has no size \"" + arguments.family +
                                      "\" (it has " + joined(widget->supportedFamilies, shortName) + ")");
    return ViewRequest{*widget, *family};
}

std::expected<TimelineEntry, CommandFailure> entryFor(const ViewRequest& request, const Arguments& arguments,
                                                      const Surroundings& surroundings) {
    if (arguments.isPreview)
        return request.widget.getSnapshot({.clock = surroundings.clock,
                                           .calendar = surroundings.calendar,
                                           .family = request.family,
                                           .isPreview = true});
    auto snapshot = requestedSnapshot(arguments, surroundings);
    if (!snapshot)
        return std::unexpected(snapshot.error());
    return VantelWidgetsBundle::entry(request.widget.kind, {surroundings.clock.now(), std::move(*snapshot)});
}

std::string cardText(const WidgetView& view, const ViewRequest& request, const Surroundings& surroundings) {
    const std::string title = surroundings.formats.translated(request.widget.displayName.c_str());
    return viewText(
        view, {.title = title,
               .formats = surroundings.formats,
               .appearance = Appearance::darkAqua(),
               .colors = surroundings.isColorTerminal ? TerminalColors::trueColor : TerminalColors::none});
}

} // namespace

CommandResult widgets(const Arguments& arguments, const Surroundings& surroundings) {
    const WidgetBundle bundle = VantelWidgetsBundle::body();
    std::string text;
    for (const StaticConfiguration& widget : bundle.widgets)
        text += widgetText(widget, surroundings.formats);
    return answer(arguments.form, text, [&](JsonWriter& json) {
        json.beginArray();
        for (const StaticConfiguration& widget : bundle.widgets)
            writeWidget(json, widget, surroundings.formats);
        json.endArray();
    });
}

CommandResult view(const Arguments& arguments, const Surroundings& surroundings) {
    const auto request = viewRequest(arguments);
    if (!request)
        return std::unexpected(request.error());
    const auto entry = entryFor(*request, arguments, surroundings);
    if (!entry)
        return std::unexpected(entry.error());
    const auto rendered =
        renderedView(request->widget, *entry, {request->family, surroundings.calendar, surroundings.formats});
    if (!rendered)
        return failed("view", rendered.error());
    if (arguments.form == OutputForm::json)
        return documentAnswer(viewJson(*rendered));
    return cardText(*rendered, *request, surroundings);
}

} // namespace vantel::commands
