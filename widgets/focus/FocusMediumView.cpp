#include "widgets/focus/FocusMediumView.h"

#include "widgets/Elements.h"
#include "widgets/MonoLabel.h"
#include "widgets/WTokens.h"
#include "widgets/focus/RecapColumn.h"
#include "widgets/focus/TaskRow.h"

namespace vantel {

namespace {

constexpr CountSizes dueSizes{.number = 28, .tracking = -0.4, .word = 10, .gap = 5};
constexpr CountSizes overdueSizes{.number = 17, .tracking = 0, .word = 10, .gap = 5};
constexpr double statColumnWidth = 88;

Element doneText(std::int64_t count, const Formats& formats) {
    constexpr Font font{.size = 9, .design = FontDesign::monospaced};
    return {Text{filled(formats.translated("%lld done"), {std::to_string(count)}),
                 {.font = font, .lineLimit = 1}}};
}

Element statColumn(const FocusInput& input, const Formats& formats) {
    std::vector<Element> lines = {monoLabel(formats.translated("Focus"), captionColor, formats),
                                  padded(dueRow(input.dueCount(), dueSizes, formats), {.top = 6})};
    if (input.tasks.overdue.count > 0)
        lines.push_back(overdueRow(input.tasks.overdue.count, overdueSizes, formats));
    lines.push_back({Spacer{}});
    if (input.tasks.doneTodayCount > 0)
        lines.push_back(doneText(input.tasks.doneTodayCount, formats));
    const Element column = {
        Column{.children = std::move(lines), .alignment = HorizontalAlignment::leading, .spacing = 0}};
    return framed(padded(column, Padding::all(8)),
                  {.minWidth = statColumnWidth, .alignment = StackAlignment::topLeading});
}

Element taskColumn(const FocusInput& input, const ViewContext& context) {
    const auto& [overdue, today, doneCount, next] = input.tasks;
    std::vector<Element> rows;
    const auto add = [&](const WidgetTask& task, bool isOverdue) {
        if (rows.size() < taskRowLimit)
            rows.push_back(
                element(TaskRow{task, input.snapshot.accountID, input.entry.date, isOverdue}, context));
    };
    for (std::size_t i = 0; i < std::min(overdue.first.size(), overdueRowLimit); ++i)
        add(overdue.first[i], true);
    for (const WidgetTask& task : today.first)
        add(task, false);
    return {Column{.children = std::move(rows), .alignment = HorizontalAlignment::leading, .spacing = 6}};
}

Element contentColumn(const FocusInput& input, const ViewContext& context) {
    const auto& recap = input.snapshot.recap;
    if (recap && WidgetBuckets::isRecapTime(input.entry.date, context.calendar))
        return framed(recapColumn(*recap, context.formats),
                      {.alignment = StackAlignment::leading, .fill = FrameFill::both});
    if (input.isAllClear())
        return centeredCard(allClearTexts(input, context));
    return framed(taskColumn(input, context),
                  {.alignment = StackAlignment::leading, .fill = FrameFill::both});
}

} // namespace

Element focusMediumView(const FocusInput& input, const ViewContext& context) {
    const Element rule = {Rule{.axis = Axis::vertical, .color = WTokens::hairline}};
    return framed(
        {Row{.children = {statColumn(input, context.formats), padded(rule, {.leading = 4, .trailing = 14}),
                          contentColumn(input, context)},
             .spacing = 0}},
        {.fill = FrameFill::both});
}

} // namespace vantel
