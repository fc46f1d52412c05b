#include "widgets/focus/FocusRules.h"

#include "platform/CheckedMath.h"
#include "platform/FatalError.h"
#include "widgets/Elements.h"
#include "widgets/WTokens.h"
#include "widgets/WidgetFormat.h"

namespace vantel {

FocusInput::FocusInput(const SnapshotEntry& source, const Calendar& calendar)
    : entry(source)
    , snapshot(*source.snapshot)
    , tasks(WidgetBuckets::overview(snapshot.tasks, source.date, calendar, taskRowLimit)) {}

std::int64_t FocusInput::dueCount() const {
    const auto sum = checkedSum(tasks.overdue.count, tasks.dueToday.count);
    if (!sum)
        fatalError("The number of due tasks overflows.");
    return *sum;
}

std::optional<std::string> focusFooterText(std::int64_t triage, std::int64_t done, const Formats& formats) {
    std::string text;
    if (triage >= 1)
        text = filled(formats.translated("%lld to triage"), {std::to_string(triage)});
    if (triage >= 1 && done >= 1)
        text += " · ";
    if (done >= 1)
        text += filled(formats.translated("%lld done"), {std::to_string(done)});
    return text.empty() ? std::nullopt : std::optional(text);
}

std::optional<WidgetTask> nextDue(const WidgetSnapshot& in, Instant after, const Calendar& calendar) {
    return WidgetBuckets::nextDue(in.tasks, after, calendar);
}

Element countRow(std::int64_t count, const CountSizes& sizes, Color numberColor, Color wordColor,
                 const std::string& word) {
    const std::string number = std::to_string(count);
    const Font numberFont{.size = sizes.number, .weight = FontWeight::bold};
    const Element numberText = {Text{number,
                                     {.font = numberFont,
                                      .tracking = sizes.tracking,
                                      .color = numberColor,
                                      .lineLimit = 1,
                                      .minimumScaleFactor = 0.4}}};
    const Element wordText = {
        Text{word, {.font = {sizes.word}, .color = wordColor, .lineLimit = 1, .minimumScaleFactor = 0.6}}};
    return labelled({Row{.children = {numberText, wordText},
                         .alignment = VerticalAlignment::firstTextBaseline,
                         .spacing = sizes.gap}},
                    number + " " + word);
}

Element dueRow(std::int64_t count, const CountSizes& sizes, const Formats& formats) {
    return countRow(count, sizes, PrimaryColor{}, WTokens::textSecondary, formats.translated("due"));
}

Element overdueRow(std::int64_t count, const CountSizes& sizes, const Formats& formats) {
    return countRow(count, sizes, WTokens::priHighText, WTokens::priHighText, formats.translated("overdue"));
}

std::vector<Element> allClearTexts(const FocusInput& input, const ViewContext& context) {
    const Formats& formats = context.formats;
    std::vector<Element> texts = {
        {Text{formats.translated("All clear"), {.font = {12.5, FontWeight::semibold}}}}};
    const auto& next = input.tasks.nextDue;
    if (!next)
        return texts;
    const TextStyle style{.font = {10}, .color = WTokens::textSecondary, .lineLimit = 2};
    const std::string line = filled(formats.translated("Next due: %s"), {next->summary});
    const std::string day = WidgetFormat::shortDay(*next->deadline, context.calendar, formats);
    texts.push_back(padded({Text{line, style}}, {.top = 6}));
    texts.push_back({Text{day, {.font = {10}, .color = WTokens::textSecondary, .lineLimit = 1}}});
    return texts;
}

} // namespace vantel
