#include "platform/DisplayWidth.h"
#include "tests/fakes/HostileTexts.h"
#include "tests/fakes/Repeated.h"
#include "tests/hosting/Cards.h"

#include <array>
#include <cstdio>
#include <random>

#include <gmock/gmock.h>

namespace vantel {
namespace {

using namespace testing;
using ::testing::HasSubstr;

constexpr std::array<std::string_view, 16> piecesOfText = {
    "\x1B[2J\x1B]0;title\x07",
    "\u009B31mred",
    "\u202Egnp.exe",
    "\u2066\u2067\u2068\u2069",
    "line\nfeed\r\ttab",
    "\u2028\u2029",
    "\xFF\xFE\x80 broken",
    "\xF0\x9F\x99",
    "\xC3\x1B[31m",
    "日本語日本語日本語日本語日本語",
    "👨‍👩‍👧‍👦 👍🏽 🇩🇪 ❤️",
    "שלום עולם",
    "\u0301\u0301\u0301 marks first",
    "ordinary words that wrap over several lines",
    "",
    "\u200B\u200B\uFEFF\u00AD"};

void expectSafe(std::string_view output) {
    EXPECT_EQ(firstThatATerminalObeys(output), std::nullopt);
}

/// The length of the escape sequence at the start of a text if it sets or resets colours, else 0.
std::size_t colorSequence(const char* text) {
    constexpr std::string_view reset = "\x1B[0m";
    if (std::string_view(text).starts_with(reset))
        return reset.size();
    unsigned weight = 0;
    unsigned channel = 0;
    int length = 0;
    std::sscanf(text, "\x1B[%u;38;2;%u;%u;%u;48;2;%u;%u;%um%n", &weight, &channel, &channel, &channel,
                &channel, &channel, &channel, &length);
    return weight == 1 || weight == 22 ? static_cast<std::size_t>(length) : 0;
}

/// The text without the escape sequences that set colours; any other stays and is found.
std::string withoutColors(std::string text) {
    std::size_t at = 0;
    while ((at = text.find('\x1B', at)) != std::string::npos) {
        const std::size_t length = colorSequence(text.c_str() + at);
        text.erase(at, length);
        at += length == 0 ? 1 : 0;
    }
    return text;
}

void expectOneWidth(const std::vector<std::string>& card) {
    for (const std::string& line : card)
        ASSERT_EQ(displayWidth(line), displayWidth(card.front())) << line;
}

/// Random views of a few levels with every kind of element and hostile texts.
class RandomViews {
public:
    explicit RandomViews(unsigned seed)
        : m_random(seed) {}

    WidgetView next() {
        WidgetView result =
            view(element(4), pick(2) == 0 ? WidgetFamily::systemSmall : WidgetFamily::systemMedium);
        result.content.widgetURL = Url{std::string(hostileText())};
        return result;
    }

private:
    unsigned pick(unsigned count) { return static_cast<unsigned>(m_random() % count); }
    double points() { return static_cast<double>(pick(80)) - 5; }
    std::optional<double> maybePoints() { return pick(2) == 0 ? std::optional(points()) : std::nullopt; }
    std::string_view hostileText() { return piecesOfText.at(pick(piecesOfText.size())); }

    std::vector<Element> children(int depth) {
        std::vector<Element> result;
        for (unsigned i = pick(6); i > 0; --i)
            result.push_back(element(depth - 1));
        return result;
    }

    TextStyle style() {
        TextStyle result{.font = {11, pick(2) == 0 ? FontWeight::regular : FontWeight::bold}};
        result.color = PrimaryColor{pick(10) / 10.0};
        result.minimumScaleFactor = pick(2) == 0 ? 1 : 0.5;
        if (pick(2) == 0)
            result.lineLimit = static_cast<int>(pick(4)) - 1;
        return result;
    }

    Element element(int depth) {
        Element result = depth == 0 || pick(3) == 0 ? leaf() : container(depth);
        if (pick(4) == 0)
            result.padding = {points(), points(), points(), points()};
        if (pick(4) == 0)
            result.frame = {maybePoints(), maybePoints(), maybePoints(), static_cast<StackAlignment>(pick(3)),
                            static_cast<FrameFill>(pick(2))};
        return result;
    }

    Element leaf() {
        switch (pick(7)) {
        case 0:
            return {RelativeTime{instantFromReference(points() * 100), style()}};
        case 1:
            return {Symbol{.name = pick(2) == 0 ? "moon" : "unknown"}};
        case 2:
            return {Spacer{maybePoints()}};
        case 3:
            return {Rule{.axis = static_cast<Axis>(pick(2))}};
        case 4:
            return {RoundedRectangle{.width = points(), .height = points(), .color = PrimaryColor{0.2}}};
        default:
            return {Text{std::string(hostileText()), style()}};
        }
    }

    Element container(int depth) {
        switch (pick(6)) {
        case 0:
            return {Column{children(depth), static_cast<HorizontalAlignment>(pick(3)), maybePoints()}};
        case 1:
            return {Stack{children(depth), static_cast<StackAlignment>(pick(3))}};
        case 2:
            return {Capsule{cardColor, element(depth - 1)}};
        case 3:
            return {Link{Url{std::string(hostileText())}, element(depth - 1)}};
        case 4:
            return {Button{{"Intent", {{"id", std::string(hostileText())}}}, element(depth - 1)}};
        default:
            return {Row{children(depth), static_cast<VerticalAlignment>(pick(4)), maybePoints()}};
        }
    }

    std::mt19937 m_random;
};

TEST(ViewTextSafety, EveryLineOfAnyCardHasTheSameWidth) {
    RandomViews views(1);
    for (int round = 0; round < 600; ++round) {
        const auto card = cardLines(printed(views.next()));
        ASSERT_GE(card.size(), 11U);
        expectOneWidth(card);
        if (HasFatalFailure())
            return;
    }
}

TEST(ViewTextSafety, ColorsChangeNoLetterAndNoWidthOfAnyText) {
    RandomViews views(2);
    for (int round = 0; round < 300; ++round) {
        const auto card = cardLines(withoutColors(printed(views.next(), TerminalColors::trueColor)));
        expectOneWidth(card);
        if (HasFatalFailure())
            return;
    }
}

TEST(ViewTextSafety, NoViewReachesTheControlsOfTheTerminal) {
    RandomViews views(3);
    for (int round = 0; round < 300; ++round) {
        const WidgetView next = views.next();
        expectSafe(printed(next));
        expectSafe(withoutColors(printed(next, TerminalColors::trueColor)));
        if (HasFatalFailure())
            return;
    }
}

TEST(ViewTextSafety, HostileTextIsShownByStandIns) {
    EXPECT_EQ(insideLines(filling(text("\x1B[31mred\a"))).front(), "␛[31mred␇");
    EXPECT_EQ(insideLines(filling(text("a\nb"))).front(), "a␊b");
    EXPECT_EQ(insideLines(filling(text("\u202Egnp"))).front(), "\uFFFDgnp");
    EXPECT_EQ(insideLines(filling(text("\xFF"))).front(), "\uFFFD");
}

TEST(ViewTextSafety, TheTitleIsNoMoreTrustedThanTheTexts) {
    const PlainFormats formats;
    const std::string card = viewText(view(text("x")), {.title = "\x1B]0;owned\x07\n", .formats = formats});
    expectSafe(card);
    EXPECT_THAT(card, HasSubstr("╭─ ␛]0;owned␇␊ · small ─"));
}

TEST(ViewTextSafety, LinksIntentsAndLabelsAreNoMoreTrustedThanTheTexts) {
    Element button = {Button{{"Run\x1B[0m", {{"id", "\x1B[2J"}}}, text("x")}};
    button.accessibilityLabel = "Complete: \x1B[31m";
    WidgetView hostile = view(row({button, link("vantel://\x1B[8m", text("\r"))}));
    hostile.content.widgetURL = Url{"vantel://\x07"};
    const std::string output = printed(hostile);
    expectSafe(output);
    EXPECT_THAT(output, HasSubstr("opens  vantel://␇\n"));
    EXPECT_THAT(output, HasSubstr("press  Complete: ␛[31m  Run␛[0m ␛[2J\n"));
    EXPECT_THAT(output, HasSubstr("link   ␍                vantel://␛[8m\n"));
}

TEST(ViewTextSafety, AVeryLongTextIsCutAndLeavesAnOrdinaryCard) {
    for (const std::string_view piece : {"word ", "日", "\u0301", "\x1B", "\xFF"}) {
        const std::string longText = repeated(piece, 4'000'000 / piece.size());
        const Element label = link("vantel://" + longText, text(longText));
        const std::string output = printed(view(column({label, text(longText, 1)})));
        expectOneWidth(cardLines(output));
        EXPECT_LT(output.size(), 20'000U);
    }
}

TEST(ViewTextSafety, ATowerOfMarksStaysOnItsLetter) {
    const std::string tower = "a" + repeated("\u0301", 1000) + "b";
    EXPECT_EQ(insideLines(filling(text(tower))).front(), "a" + repeated("\u0301", 4) + "b");
}

} // namespace
} // namespace vantel
