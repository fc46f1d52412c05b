#include "hosting/Color.h"

#include <gtest/gtest.h>

namespace vantel {
namespace {

constexpr DynamicColor blueOrRed{.lightHex = 0x0000FF, .darkHex = 0xFF0000};
constexpr ResolvedColor blue{0, 0, 1};
constexpr ResolvedColor red{1, 0, 0};
constexpr ResolvedColor primary{0.25, 0.5, 0.75};

TEST(Color, TheLightValueIsForTheLightLook) {
    EXPECT_EQ(resolve(blueOrRed, Appearance::aqua()), blue);
    EXPECT_EQ(resolve(blueOrRed, Appearance::highContrastAqua()), blue);
}

TEST(Color, TheDarkValueIsForTheDarkLookAndItsHighContrastVariation) {
    EXPECT_EQ(resolve(blueOrRed, Appearance::darkAqua()), red);
    EXPECT_EQ(resolve(blueOrRed, Appearance::highContrastDarkAqua()), red);
}

TEST(Color, ALookThatIsNeitherUsesTheLightValue) {
    EXPECT_EQ(resolve(blueOrRed, {"Sepia"}), blue);
    EXPECT_EQ(resolve(blueOrRed, {""}), blue);
}

TEST(Color, ComponentsAreTheBytesOfTheValueOver255) {
    const auto color = resolve(DynamicColor{0xE84D42, 0}, Appearance::aqua());
    EXPECT_EQ(color, (ResolvedColor{0xE8 / 255.0, 0x4D / 255.0, 0x42 / 255.0, 1}));
    EXPECT_EQ(resolve(DynamicColor{0x000000, 0}, Appearance::aqua()), (ResolvedColor{0, 0, 0, 1}));
    EXPECT_EQ(resolve(DynamicColor{0xFFFFFF, 0}, Appearance::aqua()), (ResolvedColor{1, 1, 1, 1}));
}

TEST(Color, RedIsNotMaskedAndTheOthersAre) {
    const auto color = resolve(DynamicColor{0x1FF8040, 0}, Appearance::aqua());
    EXPECT_EQ(color, (ResolvedColor{0x1FF / 255.0, 0x80 / 255.0, 0x40 / 255.0, 1}));
    const auto largest = resolve(DynamicColor{0xFFFFFFFF, 0}, Appearance::aqua());
    EXPECT_EQ(largest, (ResolvedColor{0xFFFF / 255.0, 1, 1, 1}));
}

TEST(Color, ThePrimaryColorIsTheHostsAtAnOpacity) {
    EXPECT_EQ(resolve(Color(PrimaryColor{}), Appearance::aqua(), primary), primary);
    EXPECT_EQ(resolve(Color(PrimaryColor{0.3}), Appearance::darkAqua(), primary),
              (ResolvedColor{0.25, 0.5, 0.75, 0.3}));
}

TEST(Color, ATokenResolvesToItsColor) {
    EXPECT_EQ(resolve(Color(TokenColor{"fill", blueOrRed}), Appearance::darkAqua(), primary), red);
    EXPECT_EQ(resolve(Color(TokenColor{"hairline", PrimaryColor{0.1}}), Appearance::aqua(), primary),
              (ResolvedColor{0.25, 0.5, 0.75, 0.1}));
}

TEST(Color, TheOpacityOfATokenMultipliesItsOwn) {
    const TokenColor fill{"fill", blueOrRed};
    EXPECT_EQ(resolve(Color(fill.at(0.55)), Appearance::aqua(), primary), (ResolvedColor{0, 0, 1, 0.55}));
    const TokenColor secondary{"textSecondary", PrimaryColor{0.5}};
    EXPECT_EQ(resolve(Color(secondary.at(0.5)), Appearance::aqua(), primary),
              (ResolvedColor{0.25, 0.5, 0.75, 0.25}));
}

TEST(Color, ATokenAtAnOpacityKeepsItsNameAndDiffers) {
    const TokenColor fill{"fill", blueOrRed};
    EXPECT_EQ(fill.at(0.5).name, "fill");
    EXPECT_NE(fill.at(0.5), fill);
    EXPECT_EQ(fill.at(1), fill);
}

} // namespace
} // namespace vantel
