#include "widgets/triage/TriageWidget.h"

#include "platform/CheckedMath.h"
#include "platform/FatalError.h"
#include "platform/TextKey.h"
#include "widgets/Elements.h"
#include "widgets/MonoFooter.h"
#include "widgets/MonoLabel.h"
#include "widgets/SetupStateView.h"
#include "widgets/SnapshotProvider.h"
#include "widgets/WTokens.h"
#include "widgets/WidgetLinks.h"

#include <array>
#include <cmath>

namespace vantel {

namespace {

struct Card {
    double opacity;
    double rotation;
    double offset; ///< from the deck's leading edge, so that the cards lie fanned out
};

constexpr std::array deck = {Card{0.10, -4, 6}, Card{0.07, 2, 13}, Card{0.04, 6, 20}};

Element deckMotif() {
    std::vector<Element> cards;
    cards.reserve(deck.size());
    for (const Card& card : deck)
        cards.push_back(padded({RoundedRectangle{.width = 22,
                                                 .height = 28,
                                                 .cornerRadius = 4,
                                                 .color = PrimaryColor{card.opacity},
                                                 .rotation = card.rotation}},
                               {.leading = card.offset}));
    return {Stack{.children = std::move(cards), .alignment = StackAlignment::topLeading}};
}

Element countRow(std::int64_t count, const Formats& formats) {
    const std::string number = std::to_string(count);
    const std::string word = formats.translated("to review");
    const TextStyle numberStyle{
        .font = {34, FontWeight::bold}, .tracking = -0.5, .lineLimit = 1, .minimumScaleFactor = 0.3};
    return labelled(
        {Row{.children = {{Text{number, numberStyle}},
                          {Text{word, {.font = {11}, .color = WTokens::textSecondary, .lineLimit = 1}}}},
             .alignment = VerticalAlignment::firstTextBaseline,
             .spacing = 6}},
        number + " " + word);
}

Element waitingView(std::int64_t count, const Formats& formats) {
    const std::string minutes = std::to_string(triageMinutes(count));
    return leadingCard({monoLabel(formats.translated("Triage"), captionColor, formats),
                        padded(countRow(count, formats), {.top = 8}),
                        padded(deckMotif(), {.top = 10}),
                        {Spacer{}},
                        monoFooter(filled(formats.translated("~%lld min · opens deck"), {minutes}))});
}

Element triagedView(std::int64_t snoozedCount, const Formats& formats) {
    const Element title = {Text{formats.translated("All triaged"), {.font = {12.5, FontWeight::semibold}}}};
    std::vector<Element> lines = {{Symbol{.name = "checkmark", .size = 22}}, padded(title, {.top = 4})};
    if (snoozedCount >= 1) {
        const std::string text =
            filled(formats.translated("%lld snoozed return tomorrow"), {std::to_string(snoozedCount)});
        const TextStyle style{.font = {10}, .color = WTokens::textSecondary, .lineLimit = 2};
        lines.push_back(padded({Text{text, style}}, {.top = 5}));
    }
    return centeredCard(std::move(lines));
}

} // namespace

StaticConfiguration TriageWidget::configuration() {
    const auto provider = std::make_shared<const SnapshotProvider>();
    auto configuration = makeStaticConfiguration<SnapshotEntry>(kind, provider, triageWidgetView);
    configuration.displayName = textKey("Triage");
    configuration.description = textKey("Emails waiting for a look — swipe the deck empty.");
    configuration.supportedFamilies = {WidgetFamily::systemSmall};
    return configuration;
}

WidgetContent triageWidgetView(const SnapshotEntry& entry, const ViewContext& context) {
    if (!entry.snapshot)
        return {setupStateView(context.formats), WTokens::windowBg};
    const WidgetSnapshot& snapshot = *entry.snapshot;
    const Formats& formats = context.formats;
    return {snapshot.triageCount == 0 ? triagedView(snapshot.snoozedCount, formats)
                                      : waitingView(snapshot.triageCount, formats),
            WTokens::windowBg, WidgetLinks::triage()};
}

std::int64_t triageMinutes(std::int64_t emails) {
    const auto minutes = truncatedToInteger(std::round(static_cast<double>(emails) * 20 / 60));
    if (!minutes)
        fatalError("The triage estimate overflows.");
    return *minutes;
}

} // namespace vantel
