#include "host/scene/DisplayText.h"
#include "host/scene/ShapedText.h"
#include "tests/fakes/HostileTexts.h"
#include "tests/host/scene/SceneFixture.h"

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

void expectSame(const TextBlock& block, const TextBlock& expected, const std::string& what) {
    ASSERT_EQ(block.lines.size(), expected.lines.size()) << what;
    EXPECT_EQ(block.isCut, expected.isCut) << what;
    for (std::size_t i = 0; i < block.lines.size(); ++i) {
        EXPECT_NEAR(block.lines[i].width, expected.lines[i].width, 1e-9) << what << ", line " << i;
        EXPECT_EQ(block.lines[i].glyphs, expected.lines[i].glyphs) << what << ", line " << i;
    }
}

/// From wide to narrow and back, so that most rooms are answered from what is known.
constexpr std::array widths{1000.0, 332.0, 331.9, 138.0, 60.0, 59.0, 11.0, 3.0, 58.0, 61.0, 137.0, 332.0};

TEST(ShapedText, IsBrokenAsIfNothingWereRememberedAndNothingLeftOut) {
    for (const HostileText& hostile : hostileTexts()) {
        const QString text = displayText(hostile.text);
        for (const int lines : {1, 2, 3}) {
            const ShapedText shaped(text, styleOf(lines), testLook());
            for (const double width : widths)
                expectSame(shaped.block(width, std::nullopt), brokenAsAWhole(text, styleOf(lines), width),
                           hostile.attempt + ", " + std::to_string(lines) + " lines of " +
                               std::to_string(width));
        }
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
        const TextBlock block = text.block(share * text.width(), std::nullopt);
        EXPECT_FALSE(block.isCut) << share;
        EXPECT_LE(block.size().width(), share * text.width()) << share;
    }
    EXPECT_TRUE(text.block(0.4 * text.width(), std::nullopt).isCut);
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
