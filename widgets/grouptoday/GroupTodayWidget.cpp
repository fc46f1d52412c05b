#include "widgets/grouptoday/GroupTodayWidget.h"

#include "platform/TextKey.h"
#include "widgets/Elements.h"
#include "widgets/MonoFooter.h"
#include "widgets/MonoLabel.h"
#include "widgets/SetupStateView.h"
#include "widgets/SnapshotProvider.h"
#include "widgets/WTokens.h"
#include "widgets/WidgetLinks.h"
#include "widgets/grouptoday/GroupRows.h"

namespace vantel {

namespace {

Color emphasis(const GroupRow& row, double quietOpacity) {
    return row.isFlagged ? Color(WTokens::priHighText) : Color(PrimaryColor{quietOpacity});
}

Element rowElement(const GroupRow& row) {
    const Element glyph = framed({Symbol{.name = row.glyph, .size = 10, .color = emphasis(row, 0.5)}},
                                 {.width = 14, .alignment = StackAlignment::leading});
    std::vector<Element> parts = {glyph, {Text{row.text, {.font = {11.5}, .lineLimit = 1}}}};
    if (row.chip) {
        parts.push_back({Spacer{}});
        parts.push_back({Text{*row.chip, {.font = {9.5}, .color = emphasis(row, 0.4), .lineLimit = 1}}});
    }
    return framed({Row{.children = std::move(parts), .spacing = 6}},
                  {.height = 22, .alignment = StackAlignment::leading});
}

Element rowsView(const std::vector<GroupRow>& rows, const WidgetSnapshot& snapshot, const Formats& formats) {
    const Element header = monoLabel(formats.translated("Group today"), captionColor, formats);
    std::vector<Element> lines = {padded(header, {.bottom = 7})};
    for (const GroupRow& row : rows)
        lines.push_back(rowElement(row));
    lines.push_back({Spacer{.minLength = 4}});
    lines.push_back(monoFooter(groupFooterText(snapshot, formats), formats.translated("opens People")));
    return padded(leadingCard(std::move(lines)), Padding::all(9));
}

Element quietView(const Formats& formats) {
    const Element title = {Text{formats.translated("All quiet"), {.font = {12.5, FontWeight::semibold}}}};
    const Element line = {Text{formats.translated("No absences or lab dates coming up."),
                               {.font = {10}, .color = WTokens::textSecondary}}};
    return centeredCard(
        {{Symbol{.name = "person.2", .size = 20}}, padded(title, {.top = 4}), padded(line, {.top = 5})});
}

} // namespace

StaticConfiguration GroupTodayWidget::configuration() {
    const auto provider = std::make_shared<const SnapshotProvider>();
    auto configuration = makeStaticConfiguration<SnapshotEntry>(kind, provider, groupTodayView);
    configuration.displayName = textKey("Group today");
    configuration.description = textKey("Absences, contract flags, and upcoming lab dates.");
    configuration.supportedFamilies = {WidgetFamily::systemMedium};
    return configuration;
}

WidgetContent groupTodayView(const SnapshotEntry& entry, const ViewContext& context) {
    if (!entry.snapshot)
        return {setupStateView(context.formats), WTokens::windowBg};
    const auto rows = buildRows(*entry.snapshot, entry.date, context.calendar, context.formats);
    const Formats& formats = context.formats;
    return {rows.empty() ? quietView(formats) : rowsView(rows, *entry.snapshot, formats), WTokens::windowBg,
            WidgetLinks::people()};
}

} // namespace vantel
