#include "widgets/focus/TaskRow.h"

#include "widgets/CompleteTodoIntent.h"
#include "widgets/Elements.h"
#include "widgets/WTokens.h"
#include "widgets/WidgetFormat.h"
#include "widgets/WidgetLinks.h"

namespace vantel {

namespace {

/// High enough to be hit, and four of them fill a card.
constexpr double rowHeight = 26;

Element completionControl(const TaskRow& row, const Formats& formats) {
    const Element circle = {Symbol{.name = "circle",
                                   .size = 12,
                                   .color = PrimaryColor{0.35},
                                   .rendering = SymbolRendering::hierarchical}};
    return labelled({Button{CompleteTodoIntent(row.task.id, row.accountID).call(), circle}},
                    filled(formats.translated("Complete: %s"), {row.task.summary}));
}

Element priorityBar(const TaskRow& row) {
    return {RoundedRectangle{.width = 2.5,
                             .height = 13,
                             .cornerRadius = 2,
                             .color = row.isOverdue ? WTokens::priHighFill : WTokens::priMedFill}};
}

Element summaryLink(const TaskRow& row) {
    const TextStyle style{.font = {11, row.isOverdue ? FontWeight::semibold : FontWeight::regular},
                          .color = PrimaryColor{row.isOverdue ? 1 : 0.8},
                          .lineLimit = 1,
                          .invalidatable = true};
    return {Link{WidgetLinks::todo(row.task.id), Element{Text{row.task.summary, style}}}};
}

Element deadlineText(const TaskRow& row, const ViewContext& context) {
    const Color color = row.isOverdue ? Color(WTokens::priHighText) : Color(PrimaryColor{0.4});
    const std::string days =
        WidgetFormat::relativeDays(row.entryDate, *row.task.deadline, context.calendar, context.formats);
    return {Text{days, {.font = {9}, .color = color, .lineLimit = 1}}};
}

} // namespace

Element element(const TaskRow& row, const ViewContext& context) {
    std::vector<Element> parts = {
        completionControl(row, context.formats), priorityBar(row), summaryLink(row), {Spacer{}}};
    if (row.task.deadline)
        parts.push_back(deadlineText(row, context));
    return framed({Row{.children = std::move(parts), .spacing = 6}},
                  {.height = rowHeight, .alignment = StackAlignment::leading});
}

} // namespace vantel
