#include "hosting/card/Lines.h"
#include "platform/DisplayWidth.h"

#include <random>

#include <gmock/gmock.h>

namespace vantel::card {
namespace {

using ::testing::ElementsAre;

constexpr int many = 100;

TEST(CardLines, WhatFitsIsOneLine) {
    EXPECT_THAT(wrapped("one two", 7, many), ElementsAre("one two"));
    EXPECT_THAT(wrapped("", 7, many), ElementsAre(""));
}

TEST(CardLines, LinesBreakAtTheLastBlankThatFits) {
    EXPECT_THAT(wrapped("one two", 6, many), ElementsAre("one", "two"));
    EXPECT_THAT(wrapped("one two three", 7, many), ElementsAre("one two", "three"));
    EXPECT_THAT(wrapped("one two three", 8, many), ElementsAre("one two", "three"));
}

TEST(CardLines, SeveralBlanksAtABreakVanish) {
    EXPECT_THAT(wrapped("one    two", 4, many), ElementsAre("one", "two"));
    EXPECT_THAT(wrapped("one    two", 3, many), ElementsAre("one", "two"));
    EXPECT_THAT(wrapped("one    ", 3, many), ElementsAre("one"));
}

TEST(CardLines, LinesBreakAfterAHyphen) {
    EXPECT_THAT(wrapped("camera-ready", 8, many), ElementsAre("camera-", "ready"));
}

TEST(CardLines, AWordThatIsLongerThanALineIsSplit) {
    EXPECT_THAT(wrapped("abcdefgh", 3, many), ElementsAre("abc", "def", "gh"));
    EXPECT_THAT(wrapped("x abcdefgh", 4, many), ElementsAre("x", "abcd", "efgh"));
}

TEST(CardLines, WideTextBreaksBetweenAnyTwoGlyphs) {
    EXPECT_THAT(wrapped("日本語の題名", 5, many), ElementsAre("日本", "語の", "題名"));
    EXPECT_THAT(wrapped("Re: 日本語", 8, many), ElementsAre("Re: 日本", "語"));
}

TEST(CardLines, MarksStayWithTheirLetters) {
    EXPECT_THAT(wrapped("e\u0301e\u0301e\u0301", 2, many), ElementsAre("e\u0301e\u0301", "e\u0301"));
}

TEST(CardLines, TheLastLineEndsWithAnEllipsisWhenSomethingIsMissing) {
    EXPECT_THAT(wrapped("one two three", 7, 1), ElementsAre("one tw…"));
    EXPECT_THAT(wrapped("one two three four", 7, 2), ElementsAre("one two", "three…"));
    EXPECT_THAT(wrapped("one two three", 7, 2), ElementsAre("one two", "three"));
}

TEST(CardLines, AWidthWithoutRoomForAGlyphComesToAnEnd) {
    EXPECT_EQ(wrapped("日本", 1, many).size(), 2U);
    EXPECT_EQ(wrapped("abc", 0, 2).size(), 2U);
}

TEST(CardLines, NoLineIsWiderThanTheWidthAndNoLetterIsLost) {
    std::mt19937 random(7);
    constexpr std::string_view pieces[] = {"a", "bc", " ", "  ", "-", "日", "e\u0301", "word"};
    for (int round = 0; round < 500; ++round) {
        std::string text = "x";
        for (int i = 0; i < 20; ++i)
            text += pieces[random() % std::size(pieces)];
        std::string letters;
        for (const std::string& line : wrapped(text, 6, many)) {
            EXPECT_LE(displayWidth(line), 6) << text;
            letters += line;
        }
        std::erase(letters, ' ');
        std::erase(text, ' ');
        EXPECT_EQ(letters, text);
    }
}

TEST(CardLines, ACardTextIsVisibleAndSteady) {
    EXPECT_EQ(cardText("a\x1B❤\uFE0F"), "a␛❤");
}

TEST(CardLines, ACardTextOfMoreThanACardHoldsIsCutWithAnEllipsis) {
    EXPECT_EQ(cardText(std::string(4096, 'a')), std::string(4096, 'a'));
    EXPECT_EQ(cardText(std::string(4097, 'a')), std::string(4096, 'a') + "…");
    EXPECT_EQ(cardText(std::string(4095, 'a') + "é"), std::string(4095, 'a') + "…");
}

} // namespace
} // namespace vantel::card
