#include "host/scene/DisplayText.h"
#include "host/scene/ShapedText.h"
#include "tests/fakes/HostileTexts.h"
#include "tests/host/scene/SceneFixture.h"

#include <algorithm>
#include <array>

#include <gtest/gtest.h>

namespace vantel::scene {

namespace {

using namespace testing;

TextStyle styleOf(int lines, double leastFraction = 1) {
    return {.font = {11}, .lineLimit = lines, .minimumScaleFactor = leastFraction};
}

TextBlock brokenAsAWhole(const QString& text, const TextStyle& style, double width) {
    const SceneFont font = sceneFont(style, testLook());
    const LineMetrics metrics = lineMetrics(font, style.font.size);
    const TextLine whole = unbrokenLine(text, font);
    if (whole.width <= width)
        return {{whole}, metrics};
    return textBlock(text, font, metrics, {width, *style.lineLimit});
}

void expectSame(const TextLine& line, const TextLine& expected, const std::string& what) {
    EXPECT_NEAR(line.width, expected.width, 1e-9) << what;
    EXPECT_EQ(line.glyphs, expected.glyphs) << what;
}

void expectSame(const TextBlock& block, const TextBlock& expected, const std::string& what) {
    ASSERT_EQ(block.lines.size(), expected.lines.size()) << what;
    ASSERT_EQ(block.isCut, expected.isCut) << what;
    for (std::size_t i = 0; i < block.lines.size(); ++i)
        expectSame(block.lines[i], expected.lines[i], what);
}

/// From wide to narrow and back, so that most rooms are answered from what is known.
constexpr std::array widths{332.0, 138.0, 59.0, 11.0, 58.0, 331.0};

TEST(ShapedText, IsBrokenAsIfNothingWereRememberedAndNothingLeftOut) {
    for (const HostileText& hostile : hostileTexts()) {
        const QString text = displayText(hostile.text);
        for (const int lines : {1, 2}) {
            const ShapedText shaped(text, styleOf(lines), testLook());
            for (const double width : widths) {
                expectSame(shaped.block(width, std::nullopt), brokenAsAWhole(text, styleOf(lines), width),
                           hostile.attempt + ", " + std::to_string(lines) + " lines of " +
                               std::to_string(width));
                shaped.endLayout();
            }
        }
    }
}

TEST(ShapedText, IsBrokenAsIfNothingWereRememberedWhereNothingIsCut) {
    const QString words = QStringLiteral("one two three four five six seven eight nine ten eleven twelve");
    const ShapedText text(words, styleOf(9), testLook());
    for (const int step : {-1, 1})
        for (int i = 0; i < 100; ++i) {
            const double width = 120 + step * (i - 50);
            expectSame(text.block(width, std::nullopt), brokenAsAWhole(words, styleOf(9), width),
                       std::to_string(width));
        }
}

TEST(ShapedText, KeepsItsLinesInTheRoomThatTheyTake) {
    struct Row {
        const char* text;
        TextStyle style;
        double share;
    };
    const std::array rows{Row{"Send the agenda to everybody", styleOf(1), 0.4},
                          Row{"Send the agenda to everybody", styleOf(2), 0.3},
                          Row{"Send the agenda to everybody", styleOf(2), 0.6},
                          Row{"1020 overdue", styleOf(1, 0.5), 0.8},
                          Row{"1020 overdue", styleOf(1, 0.5), 0.4}};
    for (const Row& row : rows) {
        const ShapedText text(QString::fromLatin1(row.text), row.style, testLook());
        const TextBlock first = text.block(row.share * text.width(), std::nullopt);
        const TextBlock again = text.block(first.size().width() + 0.05, first.size().height());
        const std::string what = row.text + (" in " + std::to_string(row.share));
        EXPECT_EQ(again.metrics, first.metrics) << what;
        expectSame(again, first, what);
    }
}

TEST(ShapedText, HasNoMoreLinesThanItsRoomIsHigh) {
    const ShapedText text(QStringLiteral("one two three four five six seven"), styleOf(5), testLook());
    const double line = text.metrics().height();
    const double pitch = text.metrics().pitch;
    EXPECT_EQ(text.block(30, std::nullopt).lines.size(), 5U);
    EXPECT_EQ(text.block(30, line + pitch).lines.size(), 2U);
    EXPECT_TRUE(text.block(30, line + pitch).isCut);
    EXPECT_EQ(text.block(30, line + pitch - 0.1).lines.size(), 1U);
    EXPECT_EQ(text.block(30, 1).lines.size(), 1U);
    EXPECT_EQ(text.block(30, line + 100 * pitch).lines.size(), 5U);
}

TEST(ShapedText, ShrinksBeforeItIsCut) {
    const ShapedText text(QStringLiteral("1234567890"), styleOf(1, 0.5), testLook());
    for (const double share : {0.95, 0.7, 0.52}) {
        const TextBlock& block = text.block(share * text.width(), std::nullopt);
        EXPECT_FALSE(block.isCut) << share;
        EXPECT_LE(block.size().width(), share * text.width()) << share;
    }
    EXPECT_TRUE(text.block(0.4 * text.width(), std::nullopt).isCut);
}

TEST(ShapedText, ShrinksTheSameWayWhateverRoomsItHadBefore) {
    const QString words = QStringLiteral("1020 overdue");
    const ShapedText text(words, styleOf(1, 0.5), testLook());
    for (const double share : {0.9, 0.89, 0.6, 0.59, 0.3, 0.29, 0.6, 0.9}) {
        const double width = share * text.width();
        const ShapedText fresh(words, styleOf(1, 0.5), testLook());
        expectSame(text.block(width, std::nullopt), fresh.block(width, std::nullopt), std::to_string(share));
        text.endLayout();
    }
}

TEST(ShapedTexts, AreMadeOnceWhileTheyAreShown) {
    ShapedTexts texts;
    const auto shaped = [&](const char* text, double size = 10) {
        return texts.shaped(QString::fromLatin1(text), {.font = {size}}, testLook());
    };
    const auto first = shaped("Plan");
    EXPECT_EQ(shaped("Plan"), first);
    EXPECT_NE(shaped("Plan", 11), first);
    EXPECT_NE(shaped("Plans"), first);
    texts.endLayout();
    EXPECT_EQ(shaped("Plan"), first) << "shown before";
    texts.endLayout();
    texts.endLayout();
    EXPECT_NE(shaped("Plan"), first) << "a layout went without it";
}

TEST(ShapedTexts, AreMadeAnewWhenTheyAreCleared) {
    ShapedTexts texts;
    const auto first = texts.shaped(QStringLiteral("Plan"), {.font = {10}}, testLook());
    texts.clear();
    EXPECT_NE(texts.shaped(QStringLiteral("Plan"), {.font = {10}}, testLook()), first);
}

} // namespace

} // namespace vantel::scene
