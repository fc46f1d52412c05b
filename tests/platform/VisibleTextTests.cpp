#include "platform/DisplayWidth.h"
#include "platform/Utf8.h"
#include "platform/VisibleText.h"
#include "tests/fakes/Repeated.h"

#include <array>
#include <random>

#include <gtest/gtest.h>

namespace vantel {
namespace {

using testing::repeated;

constexpr const char* replacement = "\uFFFD";

bool isControlOfATerminal(char32_t character) {
    return character < 0x20 || (character >= 0x7F && character <= 0x9F);
}

TEST(VisibleText, OrdinaryTextStaysAsItIs) {
    for (const char* text : {"", "plain", "Äpfel & Öl", "日本語", "שלום", "🙂", "cafe\u0301", "a b"})
        EXPECT_EQ(visibleText(text), text);
}

TEST(VisibleText, ControlCharactersBecomeTheirPictures) {
    EXPECT_EQ(visibleText("\x1B[31mred"), "␛[31mred");
    EXPECT_EQ(visibleText("a\nb\tc\rd"), "a␊b␉c␍d");
    EXPECT_EQ(visibleText(std::string_view("\0", 1)), "␀");
    EXPECT_EQ(visibleText("\x1F\x7F"), "␟␡");
    EXPECT_EQ(visibleText("\x20\x7E"), "\x20\x7E");
}

TEST(VisibleText, UpperControlCharactersAreReplaced) {
    EXPECT_EQ(visibleText("\u0080\u009B31m\u009F"), repeated(replacement, 2) + "31m" + replacement);
    EXPECT_EQ(visibleText("\u00A0\u00A1"), "\u00A0\u00A1");
}

TEST(VisibleText, DirectionControlsAndSeparatorsAreReplaced) {
    for (const char* control :
         {"\u061C", "\u200E", "\u200F", "\u202A", "\u202B", "\u202C", "\u202D", "\u202E", "\u2066", "\u2067",
          "\u2068", "\u2069", "\u2028", "\u2029", "\u206A", "\uFFF9"})
        EXPECT_EQ(visibleText("a" + std::string(control) + "b"), std::string("a") + replacement + "b")
            << control;
}

TEST(VisibleText, TheNeighboursOfWhatIsReplacedStay) {
    for (const char* neighbour : {"\u061B", "\u061D", "\u200D", "\u2010", "\u2027", "\u202F", "\u2070"})
        EXPECT_EQ(visibleText("a" + std::string(neighbour) + "b"), "a" + std::string(neighbour) + "b");
}

TEST(VisibleText, BytesThatAreNotUtf8AreReplacedOneByOne) {
    EXPECT_EQ(visibleText("a\xFF\xFE"), std::string("a") + repeated(replacement, 2));
    EXPECT_EQ(visibleText("\xC3(\x80"), std::string(replacement) + "(" + replacement);
    EXPECT_EQ(visibleText("ab\xE2\x82"), std::string("ab") + replacement);
}

TEST(VisibleText, ABrokenSequenceHidesNoEscape) {
    EXPECT_EQ(visibleText("\xC3\x1B[2J"), std::string(replacement) + "␛[2J");
    EXPECT_EQ(visibleText("\xF0\x9F\x99\x1B"), std::string(replacement) + "␛");
}

TEST(VisibleText, OfManyMarksAFewStay) {
    const std::string tower = "a" + repeated("\u0301", 500) + "b";
    EXPECT_EQ(visibleText(tower), "a" + repeated("\u0301", 4) + "b");
    EXPECT_EQ(visibleText("x" + repeated("\u200B", 100)), "x" + repeated("\u200B", 4));
    EXPECT_EQ(visibleText("a\u0301\u0302\u0303\u0304"), "a\u0301\u0302\u0303\u0304");
}

TEST(VisibleText, MarksWithoutACharacterAreLeftOut) {
    EXPECT_EQ(visibleText("\u0301\u0301abc"), "abc");
    EXPECT_EQ(visibleText("\uFEFFabc"), "abc");
}

TEST(VisibleText, RandomBytesNeverBecomeAControlCharacter) {
    std::mt19937 random(20260);
    const std::array<std::string_view, 12> pieces = {"\x1B", "\x9B",   "\xC2", "\x9B", "\xE2\x80", "\xAE",
                                                     "a",    "\u0301", "\xF0", "\x07", "\u202E",   "\x7F"};
    for (int round = 0; round < 2000; ++round) {
        std::string text;
        for (int i = 0; i < 12; ++i)
            text += pieces.at(random() % pieces.size());
        const std::string visible = visibleText(text);
        EXPECT_EQ(visibleText(visible), visible);
        for (std::string_view rest = visible; !rest.empty(); rest.remove_prefix(firstCodePoint(rest).length))
            ASSERT_FALSE(isControlOfATerminal(firstCodePoint(rest).value));
    }
}

} // namespace
} // namespace vantel
