#include "tests/widgets/WidgetFixture.h"
#include "widgets/WTokens.h"
#include "widgets/WidgetLinks.h"
#include "widgets/triage/TriageWidget.h"

#include <gtest/gtest.h>

namespace vantel {
namespace {

using namespace testing;
using Lines = std::vector<std::string>;

const Instant now = at("2026-11-17T09:20");

WidgetContent contentOf(std::int64_t triage, std::int64_t snoozed) {
    WidgetSnapshot snapshot = emptySnapshot(now);
    snapshot.triageCount = triage;
    snapshot.snoozedCount = snoozed;
    return triageWidgetView(entry(snapshot, now), small());
}

Lines textsOf(std::int64_t triage, std::int64_t snoozed) {
    return texts(contentOf(triage, snoozed).content);
}

TEST(TriageWidget, WithoutASnapshotItShowsTheSetupStateAndNoLink) {
    const WidgetContent content = triageWidgetView({now, nullptr}, small());
    EXPECT_EQ(texts(content.content).front(), "Halvo");
    EXPECT_EQ(content.widgetURL, std::nullopt);
}

TEST(TriageWidget, NothingToTriageAndNothingSnoozedIsACheckmarkAndTwoWords) {
    EXPECT_EQ(textsOf(0, 0), Lines{"All triaged"});
    EXPECT_EQ(textsOf(0, -1), Lines{"All triaged"});
    const Element view = contentOf(0, 0).content;
    EXPECT_EQ(all<Symbol>(view).at(0), (Symbol{.name = "checkmark", .size = 22}));
    EXPECT_EQ(textNamed(view, "All triaged").style.font, (Font{12.5, FontWeight::semibold}));
}

TEST(TriageWidget, SnoozedEmailsReturnTomorrowWhateverTheirNumber) {
    EXPECT_EQ(textsOf(0, 1), (Lines{"All triaged", "1 snoozed return tomorrow"}));
    EXPECT_EQ(textsOf(0, 3).back(), "3 snoozed return tomorrow");
    EXPECT_EQ(textNamed(contentOf(0, 3).content, "3 snoozed return tomorrow").style.color,
              Color(WTokens::textSecondary));
}

TEST(TriageWidget, OneEmailTakesNoMinute) {
    EXPECT_EQ(textsOf(1, 0), (Lines{"TRIAGE", "1", "to review", "~0 min · opens deck"}));
}

TEST(TriageWidget, TheEstimateIsTwentySecondsAnEmailRounded) {
    EXPECT_EQ(textsOf(3, 0).back(), "~1 min · opens deck");
    EXPECT_EQ(textsOf(12, 0).back(), "~4 min · opens deck");
    EXPECT_EQ(textsOf(30, 0).back(), "~10 min · opens deck");
    struct Row {
        std::int64_t emails;
        std::int64_t minutes;
    };
    for (const Row& row : {Row{0, 0}, Row{1, 0}, Row{2, 1}, Row{4, 1}, Row{5, 2}, Row{-1, 0}, Row{-2, -1}})
        EXPECT_EQ(triageMinutes(row.emails), row.minutes) << row.emails;
}

TEST(TriageWidget, CountsShowAsTheyStand) {
    EXPECT_EQ(textsOf(-7, 0)[1], "-7");
    EXPECT_EQ(textsOf(1000003, 0)[1], "1000003");
    EXPECT_EQ(textsOf(std::numeric_limits<std::int64_t>::max(), 0)[1], "9223372036854775807");
    EXPECT_EQ(textsOf(std::numeric_limits<std::int64_t>::min(), 0)[1], "-9223372036854775808");
}

TEST(TriageWidget, TheWaitingStateHasItsSizesColoursAndDeck) {
    const WidgetContent content = contentOf(23, 4);
    EXPECT_EQ(content.widgetURL, WidgetLinks::triage());
    EXPECT_EQ(content.background, WTokens::windowBg);
    EXPECT_EQ(textNamed(content.content, "23").style.font, (Font{34, FontWeight::bold}));
    EXPECT_EQ(textNamed(content.content, "23").style.tracking, -0.5);
    EXPECT_EQ(textNamed(content.content, "to review").style.font, Font{11});
    EXPECT_EQ(textNamed(content.content, "to review").style.color, Color(WTokens::textSecondary));
    EXPECT_EQ(all<RoundedRectangle>(content.content),
              (std::vector{RoundedRectangle{22, 28, 4, PrimaryColor{0.10}, -4},
                           RoundedRectangle{22, 28, 4, PrimaryColor{0.07}, 2},
                           RoundedRectangle{22, 28, 4, PrimaryColor{0.04}, 6}}));
}

} // namespace
} // namespace vantel
