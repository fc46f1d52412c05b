#include "host/scene/DisplayText.h"

#include <gtest/gtest.h>

namespace vantel::scene {

namespace {

struct Row {
    std::string_view given;
    const char16_t* shown;
};

TEST(DisplayText, ShowsTextAsItStandsAndMakesTheRestHarmless) {
    constexpr char16_t replacement[] = u"a\uFFFDb";
    const Row rows[] = {
        {"Send agenda", u"Send agenda"},
        {"<b>bold</b> & more", u"<b>bold</b> & more"},
        {"one\ntwo\r\n\tthree", u"one two   three"},
        {"a\x1b[31mred", u"a [31mred"},
        {"evil\u202Egpj.exe", u"evilgpj.exe"},
        {"\u2066isolated\u2069", u"isolated"},
        {"left\u200Emark", u"leftmark"},
        {"line\u2028paragraph\u2029end", u"line paragraph end"},
        {"a\xFF"
         "b",
         replacement},
        {"\u05E9\u05DC\u05D5\u05DD", u"\u05E9\u05DC\u05D5\u05DD"},
        {"fam\U0001F468\u200D\U0001F469", u"fam\U0001F468\u200D\U0001F469"},
        {"hidden\U000E0041\U000E007Ftag", u"hiddentag"},
        {"", u""},
    };
    for (const Row& row : rows)
        EXPECT_EQ(displayText(row.given), QString::fromUtf16(row.shown)) << row.given;
}

TEST(DisplayText, ABlankTakesThePlaceOfANulInsideAText) {
    EXPECT_EQ(displayText(std::string_view("a\0b", 3)), QStringLiteral("a b"));
}

TEST(DisplayText, ACharacterKeepsFourMarksAndNoMore) {
    std::string tower = "o";
    for (int i = 0; i < 50; ++i)
        tower += "\u0301";
    EXPECT_EQ(displayText(tower).size(), 5);
}

TEST(DisplayText, AMegabyteIsCutBetweenCharacters) {
    std::string emoji = "x";
    for (int i = 0; i < 200'000; ++i)
        emoji += "\U0001F600";
    const QString shown = displayText(emoji);
    EXPECT_EQ(shown.size(), 499);
    EXPECT_TRUE(shown.back().isLowSurrogate());
    EXPECT_EQ(displayText(std::string(1'000'000, 'y')).size(), 500);
}

} // namespace

} // namespace vantel::scene
