#include "platform/DisplayWidth.h"

#include <gtest/gtest.h>

namespace vantel {
namespace {

struct WidthCase {
    const char* text;
    int columns;
};

TEST(DisplayWidth, CountsTheColumnsOfATerminal) {
    for (const auto& [text, columns] :
         {WidthCase{"", 0}, WidthCase{"abc", 3}, WidthCase{"Äö…·", 4}, WidthCase{"日本", 4},
          WidthCase{"ﾆﾎﾝ", 3}, WidthCase{"ＡＢ", 4}, WidthCase{"한글", 4}, WidthCase{"○✓☾⚑☼♙▸", 7},
          WidthCase{"╭─╮", 3}, WidthCase{"שלום", 4}, WidthCase{"สวัสดี", 4}, WidthCase{"\u2400\uFFFD", 2}})
        EXPECT_EQ(displayWidth(text), columns) << text;
}

TEST(DisplayWidth, EmojiAreTwoColumnsWide) {
    EXPECT_EQ(displayWidth("🙂"), 2);
    EXPECT_EQ(displayWidth("⏰✅"), 4);
    EXPECT_EQ(displayWidth("☀"), 1); // a text unless it is told otherwise
    EXPECT_EQ(displayWidth("🇩🇪"), 2);
}

TEST(DisplayWidth, MarksTakeNoRoom) {
    EXPECT_EQ(displayWidth("cafe\u0301"), 4);
    EXPECT_EQ(displayWidth("a\u200B\u2060b"), 2);
    EXPECT_EQ(displayWidth("\u1112\u1161\u11AB"), 2); // one syllable from three letters
    EXPECT_EQ(displayWidth("\u0600"), 1);             // a sign that stands before a number and is seen
}

TEST(DisplayWidth, AGlyphIsABaseWithItsMarks) {
    EXPECT_EQ(firstGlyph("e\u0301\u0302x"), (Glyph{"e\u0301\u0302", 1}));
    EXPECT_EQ(firstGlyph("日x"), (Glyph{"日", 2}));
    EXPECT_EQ(firstGlyph("\u0301x"), (Glyph{"\u0301", 0}));
}

TEST(DisplayWidth, TheHalvesOfAFlagAreOneGlyph) {
    EXPECT_EQ(firstGlyph("🇩🇪🇫🇷"), (Glyph{"🇩🇪", 2}));
    EXPECT_EQ(firstGlyph("🇩x"), (Glyph{"🇩", 1}));
    EXPECT_EQ(firstGlyph("x🇩"), (Glyph{"x", 1}));
}

TEST(DisplayWidth, CuttingKeepsWholeGlyphs) {
    EXPECT_EQ(cutToWidth("abc", 5), "abc");
    EXPECT_EQ(cutToWidth("abc", 3), "abc");
    EXPECT_EQ(cutToWidth("abc", 2), "ab");
    EXPECT_EQ(cutToWidth("日本", 3), "日");
    EXPECT_EQ(cutToWidth("日本", 1), "");
    EXPECT_EQ(cutToWidth("e\u0301e\u0301", 1), "e\u0301");
    EXPECT_EQ(cutToWidth("a🇩🇪", 2), "a");
    EXPECT_EQ(cutToWidth("abc", 0), "");
    EXPECT_EQ(cutToWidth("abc", -1), "");
}

TEST(DisplayWidth, ElidingEndsWithAnEllipsisOnlyWhenSomethingIsMissing) {
    EXPECT_EQ(elided("abc", 3), "abc");
    EXPECT_EQ(elided("abcd", 3), "ab…");
    EXPECT_EQ(elided("ab cd", 4), "ab…");
    EXPECT_EQ(elided("日本語", 5), "日本…");
    EXPECT_EQ(elided("日本語", 4), "日…");
    EXPECT_EQ(elided("abc", 1), "…");
    EXPECT_EQ(elided("abc", 0), "");
    EXPECT_EQ(elided("", 0), "");
}

TEST(DisplayWidth, ASteadyTextHasNoSequenceThatTerminalsMeasureDifferently) {
    EXPECT_EQ(withSteadyWidth("❤\uFE0F!"), "❤!");
    EXPECT_EQ(withSteadyWidth("👍🏽"), "👍");
    EXPECT_EQ(withSteadyWidth("👩\u200D💻"), "👩💻");
    EXPECT_EQ(withSteadyWidth("👩🏽\u200D💻"), "👩💻");
    EXPECT_EQ(withSteadyWidth("soft\u00ADhyphen"), "softhyphen");
    EXPECT_EQ(withSteadyWidth("\u3164hidden\u115F"), "hidden");
}

TEST(DisplayWidth, ASteadyTextKeepsWhatOtherScriptsNeed) {
    EXPECT_EQ(withSteadyWidth("می\u200Cخواهم"), "می\u200Cخواهم");
    EXPECT_EQ(withSteadyWidth("क्\u200Dष"), "क्\u200Dष");
    EXPECT_EQ(withSteadyWidth("cafe\u0301 🇩🇪"), "cafe\u0301 🇩🇪");
    EXPECT_EQ(withSteadyWidth("🏽"), "🏽");
}

} // namespace
} // namespace vantel
