#include "widgets/focus/FocusSmallView.h"

#include "widgets/Elements.h"
#include "widgets/MonoFooter.h"
#include "widgets/MonoLabel.h"

namespace vantel {

namespace {

constexpr CountSizes dueSizes{.number = 34, .tracking = -0.5, .word = 11, .gap = 5};
constexpr CountSizes overdueSizes{.number = 20, .tracking = 0, .word = 11, .gap = 4};

Element allClear(const FocusInput& input, const ViewContext& context) {
    std::vector<Element> lines = {
        {Symbol{.name = "checkmark", .size = 22, .rendering = SymbolRendering::hierarchical}}};
    for (Element& text : allClearTexts(input, context))
        lines.push_back(std::move(text));
    lines[1].padding.top = 8;
    return centeredCard(std::move(lines));
}

Element counts(const FocusInput& input, const Formats& formats) {
    std::vector<Element> numbers = {dueRow(input.dueCount(), dueSizes, formats)};
    if (input.tasks.overdue.count > 0)
        numbers.push_back(
            padded(overdueRow(input.tasks.overdue.count, overdueSizes, formats), {.leading = 6}));
    return {
        Row{.children = std::move(numbers), .alignment = VerticalAlignment::firstTextBaseline, .spacing = 5}};
}

} // namespace

Element focusSmallView(const FocusInput& input, const ViewContext& context) {
    const Formats& formats = context.formats;
    if (input.isAllClear())
        return allClear(input, context);
    const Element label = monoLabel(formats.translated("Focus"), captionColor, formats);
    std::vector<Element> lines = {
        padded(label, Padding::symmetric(0, 4)), counts(input, formats), {Spacer{}}};
    if (auto footer = focusFooterText(input.snapshot.triageCount, input.tasks.doneTodayCount, formats))
        lines.push_back(monoFooter(std::move(*footer)));
    return leadingCard(std::move(lines));
}

} // namespace vantel
