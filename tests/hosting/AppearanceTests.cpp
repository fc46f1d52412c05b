#include "hosting/Appearance.h"

#include <array>

#include <gtest/gtest.h>

namespace vantel {
namespace {

constexpr std::array<std::string_view, 2> darkFirst = {darkAquaName, aquaName};
constexpr std::array<std::string_view, 2> lightFirst = {aquaName, darkAquaName};

TEST(Appearance, ALookMatchesItsOwnNameWhateverTheOrder) {
    EXPECT_EQ(bestMatch(Appearance::aqua(), darkFirst), aquaName);
    EXPECT_EQ(bestMatch(Appearance::aqua(), lightFirst), aquaName);
    EXPECT_EQ(bestMatch(Appearance::darkAqua(), darkFirst), darkAquaName);
    EXPECT_EQ(bestMatch(Appearance::darkAqua(), lightFirst), darkAquaName);
}

TEST(Appearance, AVariationMatchesTheLookThatItVaries) {
    EXPECT_EQ(bestMatch(Appearance::highContrastAqua(), darkFirst), aquaName);
    EXPECT_EQ(bestMatch(Appearance::highContrastDarkAqua(), darkFirst), darkAquaName);
    EXPECT_EQ(bestMatch(Appearance::highContrastDarkAqua(), lightFirst), darkAquaName);
}

TEST(Appearance, AVariationThatIsAskedForByNameMatchesItself) {
    const Appearance contrast = Appearance::highContrastDarkAqua();
    const std::array<std::string_view, 2> names = {darkAquaName, contrast.name};
    EXPECT_EQ(bestMatch(contrast, names), contrast.name);
}

TEST(Appearance, OfSeveralLooksThatItVariesTheNearestMatches) {
    const Appearance both{"Both", {std::string(aquaName), std::string(darkAquaName)}};
    EXPECT_EQ(bestMatch(both, darkFirst), aquaName);
    const Appearance distant{"Distant", {"Unknown", std::string(darkAquaName), std::string(aquaName)}};
    EXPECT_EQ(bestMatch(distant, lightFirst), darkAquaName);
}

TEST(Appearance, AnUnrelatedLookMatchesNothing) {
    EXPECT_EQ(bestMatch({"Sepia"}, darkFirst), std::nullopt);
    EXPECT_EQ(bestMatch({"Sepia", {"Paper"}}, darkFirst), std::nullopt);
    EXPECT_EQ(bestMatch(Appearance::darkAqua(), {}), std::nullopt);
    EXPECT_EQ(bestMatch({"NSAppearanceNameDark"}, darkFirst), std::nullopt);
}

} // namespace
} // namespace vantel
