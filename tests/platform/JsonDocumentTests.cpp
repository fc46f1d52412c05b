#include "platform/JsonDocument.h"

#include <gtest/gtest.h>

namespace vantel {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

/// "valid", or why the document is not.
std::string verdict(std::string_view bytes) {
    JsonDocument document;
    const auto root = document.parseObject(bytes);
    return root ? "valid" : message(root.error());
}

bool isValid(std::string_view bytes) {
    return verdict(bytes) == "valid";
}

/// A valid value leaves its siblings readable, an invalid one takes the whole document with it.
bool isValidValue(std::string_view value) {
    const std::string first = R"({"zz":)" + std::string(value) + R"(,"id":"a"})";
    const std::string last = R"({"id":"a","zz":)" + std::string(value) + "}";
    EXPECT_EQ(isValid(first), isValid(last)) << value;
    JsonDocument document;
    auto root = document.parseObject(first);
    return root && root->text("id") == "a" && !root->failure();
}

TEST(JsonDocument, EveryKindOfValueIsRead) {
    for (const std::string_view value : {R"("")", R"("a")", "0", "true", "false", "null", "[]", "{}",
                                         "[[[]],{},1]", R"({"a":{"b":[1,2,{"c":null}]}})"})
        EXPECT_TRUE(isValidValue(value)) << value;
}

TEST(JsonDocument, WhiteSpaceIsBlankTabLineFeedAndReturn) {
    EXPECT_TRUE(isValid(" \t\r\n{ \t\r\n\"a\" \t\r\n: \t\r\n1 \t\r\n} \t\r\n"));
    for (const std::string_view blank :
         {"\f"sv, "\v"sv, "\0"sv, "\u00A0"sv, "\u2003"sv, "\uFEFF"sv, "/**/"sv, "//\n"sv})
        EXPECT_FALSE(isValid("{\"a\":" + std::string(blank) + "1}")) << blank;
}

TEST(JsonDocument, TheRootIsAnObject) {
    EXPECT_EQ(verdict("{}"), "valid");
    for (const std::string_view root : {"[]", "null", "true", "1", "1.5", "1e999", R"("{}")", "[{}]"})
        EXPECT_EQ(verdict(root), "not an object") << root;
}

TEST(JsonDocument, NothingIsEmpty) {
    EXPECT_EQ(verdict(""), "empty");
    EXPECT_FALSE(isValid(" \n"));
}

TEST(JsonDocument, NothingFollowsTheRoot) {
    for (const std::string_view rest :
         {"{}"sv, "x"sv, ","sv, "}"sv, "]"sv, "\0"sv, "null"sv, "\n{}"sv, "//"sv})
        EXPECT_FALSE(isValid("{}" + std::string(rest))) << rest;
}

TEST(JsonDocument, PunctuationStandsWhereTheGrammarHasIt) {
    for (const std::string_view document : {R"({"a":1,})",      R"({,"a":1})",    R"({"a":1,,"b":2})",
                                            R"({"a":1 "b":2})", R"({"a" 1})",     R"({"a"})",
                                            R"({"a":})",        R"({"a"::1})",    R"({"a":1:2})",
                                            R"({a:1})",         R"({'a':1})",     R"({1:1})",
                                            R"({null:1})",      R"({"a":[1,]})",  R"({"a":[,1]})",
                                            R"({"a":[1 2]})",   R"({"a":[1:2]})", R"({"a":[1)",
                                            R"({"a":[1}])",     R"({"a":1]})",    R"({"a":{"b":1})",
                                            R"({"a":(1)})",     R"({)",           R"(})",
                                            R"({{}})",          R"({"a":1;})",    R"({"a"=1})",
                                            R"({[]:1})",        R"(["a":1])"})
        EXPECT_FALSE(isValid(document)) << document;
}

TEST(JsonDocument, WordsAreSpelledInLowerCaseAndWhole) {
    for (const std::string_view word :
         {"True", "TRUE", "tru", "truee", "fals", "nul", "NULL", "nil", "undefined", "NaN", "nan", "Infinity",
          "-Infinity", "inf", "None", "yes"})
        EXPECT_FALSE(isValidValue(word)) << word;
}

TEST(JsonDocument, NumbersFollowTheGrammar) {
    for (const std::string_view number :
         {"0", "-0", "1", "-1", "10", "0.5", "-0.5", "1.0", "1e0", "1E0", "1e+1", "1e-1", "1.5e10", "0e5",
          "0e-5", "1e05", "123456789012345678", "0.00000000000000000000001",
          "3.14159265358979323846264338327950288"})
        EXPECT_TRUE(isValidValue(number)) << number;
    for (const std::string_view number :
         {"01",    "-01",   "00",  "+1",   ".5",    "1.",   "1.e5",  "-.5",   "-",     "--1",
          "1e",    "1e+",   "1e-", "1ee5", "1e5.5", "0x10", "1_000", "1,000", "1 000", "1a",
          "1.2.3", "1e5e5", "- 1", "0b1",  "1f",    "e5",   "００",  "1/2",   "-e5",   "0.e1"})
        EXPECT_FALSE(isValidValue(number)) << number;
}

TEST(JsonDocument, NumbersOfAnySizeStandUnderKeysThatNobodyReads) {
    for (const std::string_view number :
         {"9223372036854775807", "9223372036854775808", "-9223372036854775808", "-9223372036854775809",
          "18446744073709551615", "18446744073709551616", "-99999999999999999999", "100000000000000000000",
          "1e308", "1e309", "1e999", "-1e999", "1E+999", "1.5e999", "1e99999999999999999999999", "1e-999",
          "1e-99999999999999999999999", "0e999"})
        EXPECT_TRUE(isValidValue(number)) << number;
    EXPECT_TRUE(isValidValue(std::string(1000, '9')));
    EXPECT_TRUE(isValidValue("-" + std::string(1000, '9') + ".5"));
    EXPECT_TRUE(isValidValue("0." + std::string(1000, '0') + "1"));
    EXPECT_TRUE(isValidValue("[1e999,[-1e999],{\"a\":99999999999999999999}]"));
}

TEST(JsonDocument, MalformedNumbersStayMalformedHoweverLarge) {
    for (const std::string_view number :
         {"099999999999999999999", "-", "+1e999", "1e999.5", "1.e999", ".1e999", "1e999e1", "01e999",
          "1e+-999", "--1e999", "99999999999999999999x", "9999999999999999999999.", "1e999 1",
          "0x99999999999999999999"})
        EXPECT_FALSE(isValidValue(number)) << number;
    EXPECT_FALSE(isValid(R"({1e999:1})"));
    EXPECT_FALSE(isValid(R"({"a":1e999,})"));
    EXPECT_FALSE(isValid(R"({"a":1e999)"));
}

TEST(JsonDocument, LargeNumbersInsideTextsStayTexts) {
    JsonDocument document;
    auto root =
        document.parseObject(R"({"n":1e999,"id":"1e999 \" 99999999999999999999","\\":"\\","b":"1e999"})");
    ASSERT_TRUE(root);
    EXPECT_EQ(root->text("id"), "1e999 \" 99999999999999999999");
    EXPECT_EQ(root->text("b"), "1e999");
}

TEST(JsonDocument, EscapesAreTheEightOfTheGrammarAndCodeUnits) {
    JsonDocument document;
    auto root = document.parseObject(R"({"id":"\"\\\/\b\f\n\r\t\u0041\u00e4\uD83E\uddea\u0000"})");
    ASSERT_TRUE(root);
    EXPECT_EQ(root->text("id"), "\"\\/\b\f\n\r\tAä🧪\0"s);
    for (const std::string_view text :
         {R"("\a")", R"("\x41")", R"("\'")", R"("\0")", R"("\u12")", R"("\u12g4")", R"("\u")", R"("\U0041")",
          R"("\)", R"("\")", R"("\u 041")"})
        EXPECT_FALSE(isValidValue(text)) << text;
}

TEST(JsonDocument, LoneSurrogatesAreNoText) {
    for (const std::string_view text :
         {R"("\uD800")", R"("\uDC00")", R"("\uD800\uD800")", R"("\uDC00\uD800")", R"("\uD800x")",
          R"("\uD83E\u0041")", R"("\uDBFF")", R"("\uD83E\n")"})
        EXPECT_FALSE(isValidValue(text)) << text;
    for (const std::string_view bytes : {"\"\xED\xA0\x80\""sv, "\"\xED\xBF\xBF\""sv})
        EXPECT_FALSE(isValidValue(bytes));
}

TEST(JsonDocument, ControlCharactersInTextsAreEscaped) {
    for (int c = 0; c < 0x20; ++c)
        EXPECT_FALSE(isValidValue("\"a" + std::string(1, static_cast<char>(c)) + "\"")) << c;
    EXPECT_TRUE(isValidValue("\"\x7F\""));
    EXPECT_TRUE(isValidValue("\"\u2028\u2029\u0085\""));
}

TEST(JsonDocument, BytesThatAreNotUtf8AreInvalidEverywhere) {
    for (const std::string_view bytes :
         {"\xFF"sv, "\x80"sv, "\xC3"sv, "\xC3("sv, "\xC0\x80"sv, "\xE2\x82"sv, "\xE0\x80\x80"sv,
          "\xF0\x80\x80\x80"sv, "\xF4\x90\x80\x80"sv, "\xF8\x88\x80\x80\x80"sv, "\xE4"sv}) {
        EXPECT_EQ(verdict("{\"a\":\"" + std::string(bytes) + "\"}"), "not valid UTF-8");
        EXPECT_EQ(verdict("{\"" + std::string(bytes) + "\":1}"), "not valid UTF-8");
        EXPECT_FALSE(isValid("{}" + std::string(bytes)));
    }
}

TEST(JsonDocument, OtherEncodingsAndByteOrderMarksAreInvalid) {
    EXPECT_EQ(verdict("\xEF\xBB\xBF{}"), "starts with a byte order mark");
    EXPECT_FALSE(isValid("\xFF\xFE{\0}\0"sv));
    EXPECT_FALSE(isValid("{\0}\0"sv));
    EXPECT_FALSE(isValid("\0{\0}"sv));
}

TEST(JsonDocument, ValidOnlyWhenWhole) {
    const std::string_view whole = R"( {"id":"a\u00e4ä","n":[1.5e3,-2,true,null,{"k":{}}],"z":"🧪"})";
    EXPECT_TRUE(isValid(whole));
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_FALSE(isValid(whole.substr(0, length))) << length;
}

std::string nested(std::size_t depth) {
    return R"({"zz":)" + std::string(depth, '[') + std::string(depth, ']') + "}";
}

TEST(JsonDocument, NestingMayBeDeepButNotBottomless) {
    EXPECT_EQ(verdict(nested(512)), "valid");
    EXPECT_EQ(verdict(nested(1023)), "valid");
    EXPECT_EQ(verdict(nested(1024)), "nested too deeply");
    EXPECT_EQ(verdict(nested(1'000'000)), "nested too deeply");
    EXPECT_FALSE(isValid(std::string(1'000'000, '[')));
    EXPECT_FALSE(isValid(R"({"a":)" + std::string(100'000, '{')));
}

TEST(JsonDocument, ReadsMegabytes) {
    const std::string text(4'000'000, 'x');
    JsonDocument document;
    auto root = document.parseObject(R"({"id":")" + text + R"("})");
    ASSERT_TRUE(root);
    EXPECT_EQ(root->text("id"), text);
}

TEST(JsonDocument, ReadsOneDocumentAfterAnother) {
    JsonDocument document;
    EXPECT_TRUE(document.parseObject(R"({"id":"a"})"));
    EXPECT_FALSE(document.parseObject(R"({"id":)"));
    auto last = document.parseObject(R"({"id":"b"})");
    ASSERT_TRUE(last);
    EXPECT_EQ(last->text("id"), "b");
}

} // namespace
} // namespace vantel
