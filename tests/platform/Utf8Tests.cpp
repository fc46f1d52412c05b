#include "platform/Utf8.h"

#include <gtest/gtest.h>

namespace vantel {
namespace {

TEST(Utf8, ACodePointSpansItsBytes) {
    EXPECT_EQ(firstCodePoint("a!"), (CodePoint{U'a', 1}));
    EXPECT_EQ(firstCodePoint("é!"), (CodePoint{U'é', 2}));
    EXPECT_EQ(firstCodePoint("…!"), (CodePoint{U'…', 3}));
    EXPECT_EQ(firstCodePoint("🙂!"), (CodePoint{U'🙂', 4}));
    EXPECT_EQ(firstCodePoint(std::string_view("\0!", 2)), (CodePoint{0, 1}));
}

TEST(Utf8, BytesThatAreNotUtf8ReadAsTheReplacementCharacter) {
    for (const char* broken :
         {"\x80", "\xBF", "\xC3", "\xE2\x80", "\xF0\x9F\x99", "\xFF", "\xF5\x80\x80\x80"})
        EXPECT_EQ(firstCodePoint(broken).value, replacementCharacter) << broken;
}

TEST(Utf8, OverlongFormsSurrogatesAndValuesBeyondTheLastAreNotUtf8) {
    for (const char* forbidden : {"\xC0\xAF", "\xE0\x80\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80"})
        EXPECT_EQ(firstCodePoint(forbidden).value, replacementCharacter) << forbidden;
    EXPECT_EQ(firstCodePoint("\xF4\x8F\xBF\xBF").value, 0x10FFFFU);
}

TEST(Utf8, AnAsciiByteIsNeverSwallowedByABrokenSequenceBeforeIt) {
    for (const std::string_view text : {"\xC3\x1B", "\xE2\x80\x1B", "\xF0\x9F\x99\x1B", "\xFF\x1B"}) {
        std::string_view rest = text;
        while (firstCodePoint(rest).value == replacementCharacter)
            rest.remove_prefix(firstCodePoint(rest).length);
        EXPECT_EQ(rest, "\x1B");
    }
}

TEST(Utf8, LeadingBytesCutNoCharacterInTwo) {
    EXPECT_EQ(leadingBytes("aé…🙂", 1), "a");
    EXPECT_EQ(leadingBytes("aé…🙂", 2), "a");
    EXPECT_EQ(leadingBytes("aé…🙂", 3), "aé");
    EXPECT_EQ(leadingBytes("aé…🙂", 5), "aé");
    EXPECT_EQ(leadingBytes("aé…🙂", 6), "aé…");
    EXPECT_EQ(leadingBytes("aé…🙂", 9), "aé…");
    EXPECT_EQ(leadingBytes("aé…🙂", 10), "aé…🙂");
    EXPECT_EQ(leadingBytes("aé…🙂", 11), "aé…🙂");
    EXPECT_EQ(leadingBytes("é", 0), "");
}

TEST(Utf8, LeadingBytesOfWhatIsNotUtf8AreBoundedAllTheSame) {
    EXPECT_EQ(leadingBytes("\x80\x80\x80\x80\x80\x80", 5).size(), 5U);
}

} // namespace
} // namespace vantel
