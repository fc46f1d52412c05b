#include "hosting/card/CanvasPrinter.h"

#include <gtest/gtest.h>

namespace vantel::card {
namespace {

constexpr ResolvedColor white{1, 1, 1};
constexpr ResolvedColor black{0, 0, 0};
constexpr Pen pen{black};

std::string plain(const Canvas& canvas) {
    return printed(canvas, TerminalColors::none);
}

TEST(CardCanvas, IsBlankAtFirst) {
    EXPECT_EQ(plain(Canvas({3, 2}, white)), "   \n   \n");
}

TEST(CardCanvas, WritesAlongTheFirstRowOfARoomAndNotBeyondIt) {
    Canvas canvas({6, 2}, white);
    canvas.write({1, 1, 3, 1}, "abcdef", pen);
    EXPECT_EQ(plain(canvas), "      \n abc  \n");
}

TEST(CardCanvas, WritesNothingOutsideItself) {
    Canvas canvas({3, 1}, white);
    canvas.write({2, 0, 10, 1}, "abc", pen);
    canvas.write({0, 5, 10, 1}, "abc", pen);
    canvas.write({9, 0, 10, 1}, "abc", pen);
    canvas.write({0, 0, 0, 1}, "abc", pen);
    canvas.fill({1, -4, 1, 4}, "x", pen);
    EXPECT_EQ(plain(canvas), "  a\n");
}

TEST(CardCanvas, AWideGlyphTakesTwoCellsAndIsNeverHalved) {
    Canvas canvas({5, 1}, white);
    canvas.write(canvas.bounds(), "日本語", pen);
    EXPECT_EQ(plain(canvas), "日本 \n");
}

TEST(CardCanvas, WritingOverHalfAWideGlyphTakesTheOtherHalfAway) {
    Canvas canvas({6, 1}, white);
    canvas.write(canvas.bounds(), "日本語", pen);
    canvas.write({1, 0, 4, 1}, "x", pen);
    EXPECT_EQ(plain(canvas), " x本語\n");
    canvas.write({4, 0, 1, 1}, "y", pen);
    EXPECT_EQ(plain(canvas), " x本y \n");
    canvas.write({1, 0, 2, 1}, "国", pen);
    EXPECT_EQ(plain(canvas), " 国 y \n");
}

TEST(CardCanvas, MarksStayInTheCellOfTheirLetterAndHaveNoneOfTheirOwn) {
    Canvas canvas({3, 1}, white);
    canvas.write(canvas.bounds(), "\u0301e\u0301x", pen);
    EXPECT_EQ(plain(canvas), "e\u0301x \n");
}

TEST(CardCanvas, FillsARoomWithOneGlyph) {
    Canvas canvas({4, 3}, white);
    canvas.fill({1, 1, 9, 9}, "#", pen);
    EXPECT_EQ(plain(canvas), "    \n ###\n ###\n");
}

TEST(CardCanvas, TintsMixWithWhatIsBelow) {
    Canvas canvas({2, 1}, white);
    canvas.tint({0, 0, 1, 1}, {0, 0, 0, 0.5});
    canvas.tint({0, 0, 1, 1}, {1, 0, 0, 0.5});
    EXPECT_EQ(canvas.cell({0, 0}).background, (ResolvedColor{0.75, 0.25, 0.25}));
    EXPECT_EQ(canvas.cell({1, 0}).background, white);
}

TEST(CardCanvas, TheBackgroundIsOpaque) {
    EXPECT_EQ(Canvas({1, 1}, {1, 1, 1, 0.2}).background(), white);
}

TEST(CardCanvas, ColorsAreSetOnlyWhereTheyChange) {
    Canvas canvas({4, 1}, white);
    canvas.write({1, 0, 2, 1}, "ab", pen);
    EXPECT_EQ(printed(canvas, TerminalColors::trueColor), "\x1B[22;38;2;255;255;255;48;2;255;255;255m "
                                                          "\x1B[22;38;2;0;0;0;48;2;255;255;255mab \x1B[0m\n");
}

} // namespace
} // namespace vantel::card
