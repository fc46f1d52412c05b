#include "platform/DisplayWidth.h"
#include "tests/hosting/Cards.h"

#include <gmock/gmock.h>

namespace vantel {
namespace {

using namespace testing;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

constexpr auto medium = WidgetFamily::systemMedium;
constexpr std::string_view wholeRule = "──────────────────────────"; // as wide as a small card's content

TEST(ViewText, ASmallCardIsAFrameOfThirtyColumnsWithTheNameAndTheSizeAtTheTop) {
    EXPECT_EQ(printed(view(text("Hello"))), "╭─ Test · small ───────────────╮\n"
                                            "│                              │\n"
                                            "│                              │\n"
                                            "│                              │\n"
                                            "│                              │\n"
                                            "│            Hello             │\n"
                                            "│                              │\n"
                                            "│                              │\n"
                                            "│                              │\n"
                                            "│                              │\n"
                                            "╰──────────────────────────────╯\n");
}

TEST(ViewText, AMediumCardIsWider) {
    const auto card = cardLines(printed(view(text("x"), medium)));
    EXPECT_THAT(card.front(), StartsWith("╭─ Test · medium ─"));
    EXPECT_EQ(displayWidth(card.front()), 64);
    EXPECT_EQ(displayWidth(card.back()), 64);
}

TEST(ViewText, ALongNameEndsWithAnEllipsisAndTheSizeStays) {
    const PlainFormats formats;
    const std::string name(100, 'n');
    const std::string card = viewText(view(text("x")), {.title = name, .formats = formats});
    EXPECT_THAT(lines(card).front(), EndsWith("nnn… · small ───╮"));
    EXPECT_EQ(displayWidth(lines(card).front()), 32);
}

TEST(ViewText, ACardGrowsWithItsContent) {
    std::vector<Element> many(20, text("line"));
    EXPECT_EQ(insideLines(column(many)).size(), 20U);
}

TEST(ViewText, ASpacerInARowPushesWhatFollowsToTheEdge) {
    EXPECT_THAT(insideLines(filling(row({text("left"), spacer(), text("right")}))),
                ElementsAre("left                 right"));
}

TEST(ViewText, SpacersShareTheRoom) {
    EXPECT_THAT(insideLines(filling(row({text("a"), spacer(), text("b"), spacer(), text("c")}))),
                ElementsAre("a           b            c"));
}

TEST(ViewText, ASpacerInAColumnPushesWhatFollowsToTheBottom) {
    EXPECT_THAT(insideLines(filling(column({text("top"), spacer(), text("bottom")}))),
                ElementsAre("top", "", "", "", "", "", "bottom"));
}

TEST(ViewText, ASpacerBetweenTextsNeverVanishesFromARow) {
    const std::string word(40, 'w');
    EXPECT_THAT(insideLines(filling(row({text(word, 1), spacer(), text("-3d", 1)}))),
                ElementsAre("wwwwwwwwwwwwwwwwwwwww… -3d"));
    const Element wide = {Spacer{.minLength = 24}};
    EXPECT_THAT(insideLines(filling(row({text(word, 1), wide, text("-3d", 1)}))),
                ElementsAre("wwwwwwwwwwwwwwwwww…    -3d"));
}

TEST(ViewText, TheLongestTextOfARowGivesWayFirst) {
    const std::string longText(100, 'l');
    EXPECT_THAT(insideLines(filling(row({text("short", 1), text(longText, 1)}))),
                ElementsAre("short lllllllllllllllllll…"));
    EXPECT_THAT(insideLines(filling(row({text(longText, 1), text(longText, 1)}))),
                ElementsAre("lllllllllll… llllllllllll…"));
}

TEST(ViewText, ARowKeepsItsSpacing) {
    const auto spaced = [](double points) {
        return filling({Row{.children = {text("a"), text("b")}, .spacing = points}});
    };
    EXPECT_THAT(insideLines(spaced(0)), ElementsAre("ab"));
    EXPECT_THAT(insideLines(spaced(2)), ElementsAre("a b"));
    EXPECT_THAT(insideLines(spaced(6)), ElementsAre("a b"));
    EXPECT_THAT(insideLines(spaced(18)), ElementsAre("a   b"));
    EXPECT_THAT(insideLines(filling(row({text("a"), text("b")}))), ElementsAre("a b"));
}

TEST(ViewText, ColumnsAlignTheirLines) {
    const std::vector<Element> texts = {text("long line"), text("short")};
    EXPECT_THAT(insideLines(filling(column(texts, HorizontalAlignment::leading))),
                ElementsAre("long line", "short"));
    EXPECT_THAT(insideLines(filling(column(texts, HorizontalAlignment::center))),
                ElementsAre("long line", "  short"));
    EXPECT_THAT(insideLines(filling(column(texts, HorizontalAlignment::trailing))),
                ElementsAre("long line", "    short"));
}

TEST(ViewText, TheLinesOfAWrappedTextStandAsTheirColumnAlignsThem) {
    const Element wrapping = text("Next due: Submit camera-ready version");
    EXPECT_THAT(insideLines(filling(column({wrapping}, HorizontalAlignment::center))),
                ElementsAre(" Next due: Submit camera-", "      ready version"));
    EXPECT_THAT(insideLines(filling(column({wrapping}, HorizontalAlignment::trailing))),
                ElementsAre("  Next due: Submit camera-", "             ready version"));
}

TEST(ViewText, AColumnKeepsALargeSpacing) {
    const Element loose = {Column{.children = {text("a"), text("b")}, .spacing = 32}};
    const Element tight = {Column{.children = {text("a"), text("b")}, .spacing = 6}};
    EXPECT_THAT(insideLines(filling(loose)), ElementsAre("a", "", "", "b"));
    EXPECT_THAT(insideLines(filling(tight)), ElementsAre("a", "b"));
}

TEST(ViewText, ChildrenOfARowStandAtItsTopMiddleOrBottom) {
    const Element tall = column({text("1"), text("2"), text("3")});
    EXPECT_THAT(insideLines(filling(row({tall, text("x")}, VerticalAlignment::top))),
                ElementsAre("1 x", "2", "3"));
    EXPECT_THAT(insideLines(filling(row({tall, text("x")}, VerticalAlignment::firstTextBaseline))),
                ElementsAre("1 x", "2", "3"));
    EXPECT_THAT(insideLines(filling(row({tall, text("x")}))), ElementsAre("1", "2 x", "3"));
    EXPECT_THAT(insideLines(filling(row({tall, text("x")}, VerticalAlignment::bottom))),
                ElementsAre("1", "2", "3 x"));
}

TEST(ViewText, AHorizontalRuleSpansItsContainer) {
    EXPECT_THAT(insideLines(filling(column({text("a"), rule(), text("b")}))),
                ElementsAre("a", wholeRule, "b"));
}

TEST(ViewText, AVerticalRuleIsAsTallAsItsRow) {
    const Element left = column({text("1"), spacer(), text("9")});
    EXPECT_THAT(insideLines(filling(row({left, rule(Axis::vertical), text("x")}))),
                ElementsAre("1 │", "  │", "  │", "  │ x", "  │", "  │", "9 │"));
}

TEST(ViewText, AStackDrawsTheLastChildOnTop) {
    const Element stack = {
        Stack{.children = {text("bottom"), text("top")}, .alignment = StackAlignment::leading}};
    EXPECT_THAT(insideLines(filling(stack)), ElementsAre("toptom"));
}

TEST(ViewText, AStackPlacesItsChildrenByItsAlignment) {
    const auto stack = [](StackAlignment alignment) {
        return filling({Stack{.children = {column({text("....."), text("....."), text(".....")}), text("x")},
                              .alignment = alignment}});
    };
    EXPECT_THAT(insideLines(stack(StackAlignment::center)), ElementsAre(".....", "..x..", "....."));
    EXPECT_THAT(insideLines(stack(StackAlignment::leading)), ElementsAre(".....", "x....", "....."));
    EXPECT_THAT(insideLines(stack(StackAlignment::topLeading)), ElementsAre("x....", ".....", "....."));
}

TEST(ViewText, AWideGlyphThatIsHalfCoveredVanishes) {
    const Element covered = {Stack{.children = {text("日本"), padded(text("x"), {.leading = 6})},
                                   .alignment = StackAlignment::leading}};
    EXPECT_THAT(insideLines(filling(covered)), ElementsAre(" x本"));
}

TEST(ViewText, SymbolsAreOneCharacter) {
    const auto symbol = [](std::string_view name) { return filling({Symbol{.name = name}}); };
    EXPECT_THAT(insideLines(symbol("checkmark")), ElementsAre("✓"));
    EXPECT_THAT(insideLines(symbol("circle")), ElementsAre("○"));
    EXPECT_THAT(insideLines(symbol("moon")), ElementsAre("☾"));
    EXPECT_THAT(insideLines(symbol("flag")), ElementsAre("⚑"));
    EXPECT_THAT(insideLines(symbol("sun.max")), ElementsAre("☼"));
    EXPECT_THAT(insideLines(symbol("person")), ElementsAre("♙"));
    EXPECT_THAT(insideLines(symbol("person.2")), ElementsAre("♙"));
    EXPECT_THAT(insideLines(symbol("no.such.symbol")), ElementsAre("•"));
}

TEST(ViewText, ANarrowShapeIsABarThatBringsItsOwnGap) {
    const Element bar = {RoundedRectangle{.width = 2.5, .height = 13}};
    EXPECT_THAT(insideLines(filling(row({text("a"), bar, text("b")}))), ElementsAre("a ▌b"));
}

TEST(ViewText, ALargerShapeIsAShadeOfItsOpacity) {
    const auto shape = [](double opacity) {
        return filling({RoundedRectangle{.width = 24, .height = 32, .color = PrimaryColor{opacity}}});
    };
    EXPECT_THAT(insideLines(shape(0.1)), ElementsAre("░░░░", "░░░░"));
    EXPECT_THAT(insideLines(shape(0.4)), ElementsAre("▒▒▒▒", "▒▒▒▒"));
    EXPECT_THAT(insideLines(shape(0.8)), ElementsAre("▓▓▓▓", "▓▓▓▓"));
    EXPECT_THAT(insideLines(shape(1)), ElementsAre("████", "████"));
}

TEST(ViewText, ACapsuleHasRoundEndsForItsPadding) {
    const Element content = padded(row({text("▸"), text("Join Zoom")}), Padding::symmetric(12, 5));
    EXPECT_THAT(insideLines(filling({Capsule{cardColor, content}})), ElementsAre("( ▸ Join Zoom )"));
}

TEST(ViewText, ACapsuleWithoutRoomKeepsItsText) {
    const std::string wide(19, 'w');
    const Element capsule = {Capsule{cardColor, text("Join", 1)}};
    EXPECT_THAT(insideLines(filling(row({text(wide, 1), text("1", 1), capsule}))),
                ElementsAre(wide.substr(0, 14) + "… 1 ( Join )"));
    std::vector<Element> crowd(6, capsule);
    EXPECT_THAT(insideLines(filling(row(crowd))), ElementsAre("Jo… Jo… Jo… Join Join Join"));
}

TEST(ViewText, ARelativeTimeCountsFromTheDateOfTheView) {
    const Element time = {RelativeTime{instantFromReference(1090), {.font = {11}}}};
    EXPECT_THAT(insideLines(filling(row({text("in"), time}))), ElementsAre("in 90 s"));
}

TEST(ViewText, PaddingMovesAnElementByWholeColumnsAndRows) {
    EXPECT_THAT(insideLines(filling(padded(text("x"), Padding::all(8)))), ElementsAre(" x"));
    EXPECT_THAT(insideLines(filling(padded(text("x"), {.top = 16, .leading = 12}))), ElementsAre("", "  x"));
    EXPECT_THAT(insideLines(filling(row({padded(text("a"), {.trailing = 12}), text("b")}))),
                ElementsAre("a   b"));
}

TEST(ViewText, AFramedWidthIsTheLeastAndKeepsAGap) {
    const auto timed = [](std::string time) {
        const Element hour =
            framed(text(std::move(time), 1), {.width = 36, .alignment = StackAlignment::leading});
        return filling({Row{.children = {hour, text("x")}, .spacing = 0}});
    };
    EXPECT_THAT(insideLines(timed("9:00")), ElementsAre("9:00  x"));
    EXPECT_THAT(insideLines(timed("10:00")), ElementsAre("10:00 x"));
    EXPECT_THAT(insideLines(timed("10:00h")), ElementsAre("10:00h x"));
    EXPECT_THAT(insideLines(timed("10:00 AM")), ElementsAre("10:00 AM x"));
}

TEST(ViewText, TextThatMayShrinkHasRoomForTheLettersThatWouldThenStandInItsFrame) {
    const auto timed = [](std::string time) {
        const TextStyle style{.font = {10}, .lineLimit = 1, .minimumScaleFactor = 0.7};
        const Element hour =
            framed({Text{std::move(time), style}}, {.width = 36, .alignment = StackAlignment::leading});
        return row({hour, text("x")});
    };
    EXPECT_THAT(insideLines(filling(column({timed("9:00 AM"), timed("10:00 AM")}))),
                ElementsAre("9:00 AM   x", "10:00 AM  x"));
}

TEST(ViewText, ALeastWidthIsKept) {
    const Element narrow = framed(text("x"), {.minWidth = 60, .alignment = StackAlignment::leading});
    EXPECT_THAT(insideLines(filling(row({narrow, text("y")}))), ElementsAre("x          y"));
    const Element wide = framed(text("wider than that"), {.minWidth = 60});
    EXPECT_THAT(insideLines(filling(row({wide, text("y")}))), ElementsAre("wider than that y"));
}

TEST(ViewText, AFrameThatFillsPlacesItsContent) {
    const auto placed = [](StackAlignment alignment) {
        return framed(text("x"), {.alignment = alignment, .fill = FrameFill::both});
    };
    EXPECT_THAT(insideLines(placed(StackAlignment::topLeading)), ElementsAre("x"));
    EXPECT_THAT(insideLines(placed(StackAlignment::leading)), ElementsAre("", "", "", "x"));
    EXPECT_THAT(insideLines(placed(StackAlignment::center)),
                ElementsAre("", "", "", std::string(12, ' ') + "x"));
}

TEST(ViewText, LinksAndButtonsLookLikeTheirLabels) {
    const Element button = {Button{{"Intent", {}}, Element{Symbol{.name = "circle"}}}};
    EXPECT_THAT(insideLines(filling(row({button, link("vantel://focus", text("Open"))}))),
                ElementsAre("○ Open"));
}

TEST(ViewText, TextWithoutALimitWrapsBetweenWords) {
    EXPECT_THAT(insideLines(filling(text("Open the app once to fill this widget."))),
                ElementsAre("Open the app once to fill", "this widget."));
}

TEST(ViewText, ALimitOfTwoLinesEndsTheSecondWithAnEllipsis) {
    EXPECT_THAT(insideLines(filling(text("Group meeting: single-cell pipeline, next steps and more", 2))),
                ElementsAre("Group meeting: single-cell", "pipeline, next steps and…"));
}

TEST(ViewText, ALimitOfOneLineElides) {
    EXPECT_THAT(insideLines(filling(text("Group meeting: single-cell pipeline", 1))),
                ElementsAre("Group meeting: single-cel…"));
    EXPECT_THAT(insideLines(filling(text("exactly twenty-six columns", 1))),
                ElementsAre("exactly twenty-six columns"));
}

TEST(ViewText, ATextWithoutALimitEndsAfterSixLinesAllTheSame) {
    std::string words;
    for (int i = 0; i < 200; ++i)
        words += "word ";
    const auto inside = insideLines(filling(text(words)));
    ASSERT_EQ(inside.size(), 6U);
    EXPECT_THAT(inside.back(), EndsWith("…"));
}

TEST(ViewText, WideTextTakesTwoColumnsAGlyph) {
    EXPECT_THAT(
        insideLines(filling(row({text("日本語のタイトルがとても長い場合", 1), spacer(), text("今日")}))),
        ElementsAre("日本語のタイトルがと… 今日"));
    EXPECT_THAT(insideLines(filling(text("日本語のタイトルがとても長い場合"))),
                ElementsAre("日本語のタイトルがとても長", "い場合"));
}

TEST(ViewText, EmojiMadeOfSeveralComeApartSoThatEveryTerminalAgreesOnTheirWidth) {
    EXPECT_THAT(insideLines(filling(row({text("👩‍💻 ❤️ 👍🏽"), spacer(), text("x")}))),
                ElementsAre("👩💻 ❤ 👍                x"));
}

/// Counts beside tasks, as a widget of a busy day shows them.
Element busyDay() {
    const auto task = [](std::string title, std::string day) {
        const Element bar = {RoundedRectangle{.width = 2.5, .height = 13, .cornerRadius = 2}};
        return row({{Symbol{.name = "circle", .size = 12}},
                    bar,
                    text(std::move(title), 1),
                    spacer(),
                    text(std::move(day), 1)});
    };
    const Element counts = framed(column({text("FOCUS"), row({text("6"), text("due")}),
                                          row({text("3"), text("overdue")}), spacer(), text("2 done")}),
                                  {.minWidth = 88, .alignment = StackAlignment::topLeading});
    const Element tasks = column({task("Sign off ethics amendment for cohort B", "-3d"),
                                  task("Answer reviewer 2 (revision due)", "-1d"),
                                  task("研究計画書の最終確認と提出準備、それから予算案", "today"),
                                  task("Send agenda", "today")});
    return framed(row({counts, padded(rule(Axis::vertical), {.leading = 6, .trailing = 6}),
                       framed(tasks, {.alignment = StackAlignment::leading, .fill = FrameFill::both})}),
                  {.fill = FrameFill::both});
}

TEST(ViewText, ColumnsStandSideBySideAndEverythingIsAligned) {
    EXPECT_EQ(printed(view(busyDay(), medium)),
              "╭─ Test · medium ──────────────────────────────────────────────╮\n"
              "│                                                              │\n"
              "│  FOCUS           │                                           │\n"
              "│  6 due           │  ○ ▌Sign off ethics amendment for c… -3d  │\n"
              "│  3 overdue       │  ○ ▌Answer reviewer 2 (revision due) -1d  │\n"
              "│                  │  ○ ▌研究計画書の最終確認と提出準…  today  │\n"
              "│                  │  ○ ▌Send agenda                    today  │\n"
              "│                  │                                           │\n"
              "│  2 done          │                                           │\n"
              "│                                                              │\n"
              "╰──────────────────────────────────────────────────────────────╯\n");
}

TEST(ViewText, WithoutALinkNothingStandsBelowTheCard) {
    EXPECT_THAT(lines(printed(view(text("x")))).back(), StartsWith("╰"));
}

TEST(ViewText, BelowTheCardStandsWhatAClickOpens) {
    WidgetView linked = view(text("x"));
    linked.content.widgetURL = Url{"vantel://focus"};
    EXPECT_EQ(lines(printed(linked)).back(), "opens  vantel://focus");
}

TEST(ViewText, BelowTheCardStandLinksAndButtonsInReadingOrder) {
    Element button = {Button{{"CompleteTodoIntent", {{"todoID", "t-1"}, {"accountID", "acct"}}},
                             Element{Symbol{.name = "circle"}}}};
    button.accessibilityLabel = "Complete: Write";
    const Element task = row({button, link("vantel://todo?id=t-1", text("Write"))});
    WidgetView linked = view(column({task, link("vantel://join", row({text("▸"), text("Join")}))}));
    linked.content.widgetURL = Url{"vantel://focus"};

    const auto all = lines(printed(linked));
    const auto card = cardLines(printed(linked));
    EXPECT_THAT(std::vector(all.begin() + static_cast<std::ptrdiff_t>(card.size()), all.end()),
                ElementsAre("opens  vantel://focus",                               //
                            "press  Complete: Write  CompleteTodoIntent t-1 acct", //
                            "link   Write            vantel://todo?id=t-1",        //
                            "link   ▸ Join           vantel://join"));
}

TEST(ViewText, ALongLabelBelowTheCardIsElidedAndItsLinkIsNot) {
    const std::string longText(300, 'l');
    const auto all = lines(printed(view(link("vantel://" + longText, text(longText)))));
    EXPECT_EQ(all.back(), "link   " + longText.substr(0, 35) + "…  vantel://" + longText);
}

TEST(ViewText, LinksInsideACapsuleAreFound) {
    const Element capsule = {Capsule{cardColor, link("vantel://join", text("Join"))}};
    EXPECT_THAT(printed(view(capsule)), HasSubstr("link   Join  vantel://join\n"));
}

} // namespace
} // namespace vantel
