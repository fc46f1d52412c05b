#include "tests/hosting/Cards.h"

#include <limits>

#include <gmock/gmock.h>

namespace vantel {
namespace {

using namespace testing;
using ::testing::AllOf;
using ::testing::Each;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

constexpr TokenColor red{"red", DynamicColor{0xFF0000, 0x00FF00}};
constexpr TokenColor dark{"dark", DynamicColor{0x000000, 0x000000}};

std::string colors(const Element& content, const Appearance& appearance = Appearance::aqua()) {
    return printed(view(filling(content)), TerminalColors::trueColor, appearance);
}

TEST(ViewTextColor, WithoutColorsNothingIsEscaped) {
    EXPECT_THAT(printed(view(colored("x", red, FontWeight::bold))), Not(HasSubstr("\x1B")));
}

TEST(ViewTextColor, EachLineOfTheCardSetsItsColorsAndResetsThem) {
    EXPECT_THAT(cardLines(colors(text("x"))), Each(AllOf(StartsWith("\x1B["), EndsWith("\x1B[0m"))));
}

TEST(ViewTextColor, TheLinesBelowTheCardHaveTheColorsOfTheTerminal) {
    EXPECT_THAT(lines(colors(link("vantel://x", text("x")))).back(), StartsWith("link   x"));
}

TEST(ViewTextColor, TextHasItsColorOnThatOfTheCard) {
    EXPECT_THAT(colors(colored("x", red)), HasSubstr("\x1B[22;38;2;255;0;0;48;2;240;240;240mx"));
}

TEST(ViewTextColor, TheAppearanceChoosesLightOrDark) {
    EXPECT_THAT(colors(colored("x", red), Appearance::darkAqua()),
                HasSubstr("\x1B[22;38;2;0;255;0;48;2;32;32;32mx"));
    EXPECT_THAT(colors(colored("x", red), Appearance::highContrastDarkAqua()),
                HasSubstr("\x1B[22;38;2;0;255;0;48;2;32;32;32mx"));
}

TEST(ViewTextColor, PrimaryTextIsDarkOnLightAndLightOnDark) {
    EXPECT_THAT(colors(text("x")), HasSubstr("38;2;27;26;23;48;2;240;240;240mx"));
    EXPECT_THAT(colors(text("x"), Appearance::darkAqua()), HasSubstr("38;2;255;255;255;48;2;32;32;32mx"));
}

TEST(ViewTextColor, AnOpacityLetsTheCardShowThrough) {
    EXPECT_THAT(colors(colored("x", red.at(0.5))), HasSubstr("38;2;248;120;120;48;2;240;240;240mx"));
    EXPECT_THAT(colors(colored("x", red.at(0))), HasSubstr("38;2;240;240;240;48;2;240;240;240mx"));
}

TEST(ViewTextColor, SemiboldAndBoldTextIsBold) {
    EXPECT_THAT(colors(colored("x", red, FontWeight::bold)),
                HasSubstr("\x1B[1;38;2;255;0;0;48;2;240;240;240mx"));
    EXPECT_THAT(colors(colored("x", red, FontWeight::semibold)), HasSubstr("\x1B[1;38;2;255;0;0;"));
    EXPECT_THAT(colors(colored("x", red, FontWeight::medium)), HasSubstr("\x1B[22;38;2;255;0;0;"));
}

TEST(ViewTextColor, ACapsuleIsFilledBetweenRoundEnds) {
    const Element capsule = {Capsule{dark, colored("Join", red)}};
    EXPECT_THAT(colors(capsule), HasSubstr("\x1B[22;38;2;0;0;0;48;2;240;240;240m▐"));
    EXPECT_THAT(colors(capsule), HasSubstr("\x1B[22;38;2;255;0;0;48;2;0;0;0mJoin"));
}

TEST(ViewTextColor, ACapsuleThatWouldNotStandOutHasAnOutline) {
    const Element capsule = {Capsule{TokenColor{"pale", DynamicColor{0xEEEEEE, 0xEEEEEE}}, text("Join")}};
    EXPECT_THAT(colors(capsule), HasSubstr("m(\x1B"));
    EXPECT_THAT(colors(capsule), Not(HasSubstr("▐")));
}

TEST(ViewTextColor, ShapesAreTintsThatAddUpWhereTheyOverlap) {
    const Element card = {RoundedRectangle{.width = 12, .height = 16, .color = dark.at(0.5)}};
    const Element deck = {
        Stack{.children = {card, padded(card, {.leading = 6})}, .alignment = StackAlignment::topLeading}};
    const std::string output = colors(deck);
    EXPECT_THAT(output, HasSubstr("48;2;120;120;120m \x1B"));
    EXPECT_THAT(output, HasSubstr("48;2;60;60;60m \x1B"));
    EXPECT_THAT(output, Not(HasSubstr("░")));
}

TEST(ViewTextColor, TheFrameStandsOutFromADarkCardInALightAppearance) {
    WidgetView inverted = view(text("x"));
    inverted.content.background = dark;
    EXPECT_THAT(printed(inverted, TerminalColors::trueColor),
                StartsWith("\x1B[22;38;2;64;64;64;48;2;0;0;0m╭"));
    EXPECT_THAT(colors(text("x")), StartsWith("\x1B[22;38;2;180;180;180;48;2;240;240;240m╭"));
}

TEST(ViewTextColor, ComponentsBeyondTheirRangeAreClamped) {
    const TokenColor bright{"bright", DynamicColor{0x1FF0000, 0}};
    EXPECT_THAT(colors(colored("x", bright)), HasSubstr("38;2;255;0;0;"));
    EXPECT_THAT(colors(colored("x", PrimaryColor{std::numeric_limits<double>::quiet_NaN()})),
                HasSubstr("38;2;0;0;0;48;2;240;240;240mx"));
}

} // namespace
} // namespace vantel
