#include "platform/JsonDocument.h"
#include "platform/JsonWriter.h"

#include <bit>
#include <cmath>
#include <limits>
#include <random>

#include <gtest/gtest.h>

namespace vantel {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// One value as the writer puts it, or its failure.
std::string written(const auto& value) {
    JsonWriter json;
    json.value(value);
    const auto document = json.finish();
    return document ? *document : message(document.error());
}

double readBack(double number) {
    JsonDocument document;
    auto root = document.parseObject(R"({"k":)" + written(number) + "}");
    return root ? root->number("k") : notANumber;
}

TEST(JsonWriter, NumbersAreTheShortestTextThatReadsBackTheSame) {
    const struct {
        double number;
        std::string_view text;
    } rows[] = {{788918400, "788918400"},
                {788918400.5, "788918400.5"},
                {0.94, "0.94"},
                {1e21, "1e+21"},
                {1e300, "1e+300"},
                {0, "0"},
                {1, "1"},
                {-1.5, "-1.5"},
                {0.1 + 0.2, "0.30000000000000004"},
                {1.0 / 3, "0.3333333333333333"},
                {1e-7, "1e-07"},
                {5e-324, "5e-324"},
                {1.7976931348623157e308, "1.7976931348623157e+308"},
                {-978307200, "-978307200"}};
    for (const auto& row : rows)
        EXPECT_EQ(written(row.number), row.text);
}

TEST(JsonWriter, ACharacterIsEscapedWhereverItStands) {
    const struct {
        std::string character;
        std::string text;
    } rows[] = {{"\"", "\\\""},     {"\\", "\\\\"},
                {"\n", "\\n"},      {"\x1F", "\\u001f"},
                {"\0"s, "\\u0000"}, {" ", " "},
                {"!", "!"},         {"#", "#"},
                {"[", "["},         {"]", "]"},
                {"\x7F", "\x7F"},   {"\xC2\x80", "\xC2\x80"},
                {"ü", "ü"},         {"\U0001F600", "\U0001F600"}};
    for (const auto& row : rows)
        for (std::size_t before = 0; before < 20; ++before)
            for (std::size_t after = 0; after < 20; ++after)
                EXPECT_EQ(written(std::string(before, 'a') + row.character + std::string(after, 'z')),
                          '"' + std::string(before, 'a') + row.text + std::string(after, 'z') + '"');
}

TEST(JsonWriter, ATextThatIsNotUtf8FailsWhereverTheWrongByteStands) {
    for (std::size_t before = 0; before < 20; ++before)
        for (std::size_t after = 0; after < 20; ++after)
            for (const char* wrong : {"\xFF", "\xC3", "\x80", "\xED\xA0\x80", "\"\xFF", "\xFF\""})
                EXPECT_EQ(written(std::string(before, 'a') + wrong + std::string(after, 'z')),
                          written("\xFF"s));
}

TEST(JsonWriter, AnEmptyTextNeedsNoCharacters) {
    EXPECT_EQ(written(std::string_view()), R"("")");
}

TEST(JsonWriter, EveryFiniteNumberReadsBackBitForBit) {
    std::mt19937_64 random(7);
    for (int i = 0; i < 20'000; ++i) {
        const auto number = std::bit_cast<double>(random());
        if (std::isfinite(number)) {
            EXPECT_EQ(std::bit_cast<std::uint64_t>(readBack(number)), std::bit_cast<std::uint64_t>(number))
                << number;
        }
    }
}

TEST(JsonWriter, NegativeZeroKeepsItsSign) {
    EXPECT_EQ(written(-0.0), "-0.0");
    EXPECT_TRUE(std::signbit(readBack(-0.0)));
    EXPECT_FALSE(std::signbit(readBack(0.0)));
}

TEST(JsonWriter, IntegersAreWrittenWhole) {
    EXPECT_EQ(written(std::int64_t{0}), "0");
    EXPECT_EQ(written(-7), "-7");
    EXPECT_EQ(written(std::numeric_limits<std::int64_t>::max()), "9223372036854775807");
    EXPECT_EQ(written(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
    EXPECT_EQ(written(std::numeric_limits<std::uint64_t>::max()), "18446744073709551615");
    EXPECT_EQ(written(std::size_t{3}), "3");
}

TEST(JsonWriter, BooleansNullAndInstants) {
    EXPECT_EQ(written(true), "true");
    EXPECT_EQ(written(false), "false");
    EXPECT_EQ(written(instantFromReference(788918400.25)), "788918400.25");
    JsonWriter json;
    json.null();
    EXPECT_EQ(json.finish(), "null");
}

TEST(JsonWriter, TextsEscapeWhatJsonDemandsAndNothingElse) {
    EXPECT_EQ(written("plain"), R"("plain")");
    EXPECT_EQ(written(""s), R"("")");
    EXPECT_EQ(written("a\"b\\c"), R"("a\"b\\c")");
    EXPECT_EQ(written("\n\r\t"), R"("\n\r\t")");
    EXPECT_EQ(written("\0a\x01\x1F\b\f"sv), R"("\u0000a\u0001\u001f\u0008\u000c")");
    EXPECT_EQ(written("ä/🧪\x7F\u2028<&'"), "\"ä/🧪\x7F\u2028<&'\"");
}

TEST(JsonWriter, TextsReadBackTheSame) {
    std::string everyCharacter(1, '\0');
    for (char c = 1; c < 0x7F; ++c)
        everyCharacter += c;
    JsonWriter json;
    json.beginObject();
    json.field("k", everyCharacter + "ä🧪");
    json.endObject();
    JsonDocument document;
    auto root = document.parseObject(json.finish().value());
    ASSERT_TRUE(root);
    EXPECT_EQ(root->text("k"), everyCharacter + "ä🧪");
}

TEST(JsonWriter, StructureIsCompactAndInWritingOrder) {
    JsonWriter json;
    json.beginObject();
    json.field("b", 1);
    json.key("a");
    json.beginArray();
    json.value(1);
    json.beginObject();
    json.endObject();
    json.beginArray();
    json.endArray();
    json.value("x");
    json.endArray();
    json.key("o");
    json.beginObject();
    json.field("c", true);
    json.field("d", false);
    json.endObject();
    json.endObject();
    EXPECT_EQ(json.finish(), R"({"b":1,"a":[1,{},[],"x"],"o":{"c":true,"d":false}})");
}

TEST(JsonWriter, AbsentFieldsAreLeftOut) {
    JsonWriter json;
    json.beginObject();
    json.field("a", std::optional<std::string>());
    json.field("b", std::optional<bool>(false));
    json.field("c", std::optional<double>());
    json.field("d", std::optional<Instant>(instantFromReference(0)));
    json.endObject();
    EXPECT_EQ(json.finish(), R"({"b":false,"d":0})");
}

/// A document like a snapshot's with one text and one number deep inside.
Result<std::string> documentWith(std::string_view text, double number) {
    JsonWriter json;
    json.beginObject();
    json.field("version", 1);
    json.key("tasks");
    json.beginArray();
    json.beginObject();
    json.endObject();
    json.beginObject();
    json.field("id", "a");
    json.field("summary", text);
    json.field("priorityScore", number);
    json.endObject();
    json.endArray();
    json.endObject();
    return json.finish();
}

TEST(JsonWriter, NumbersThatAreNotFiniteFailWithTheirPlace) {
    for (const double number : {infinity, -infinity, notANumber})
        EXPECT_EQ(documentWith("a", number).error(),
                  Error(EncodingError{"tasks[1].priorityScore", "not a finite number"}));
    EXPECT_EQ(written(infinity), "not a finite number");
    EXPECT_EQ(written(instantFromReference(notANumber)), "not a finite number");
}

TEST(JsonWriter, TextsThatAreNotUtf8FailWithTheirPlace) {
    for (const std::string_view text :
         {"\xFF"sv, "a\xC3"sv, "\xED\xA0\x80"sv, "\xC0\x80"sv, "\xF4\x90\x80\x80"sv})
        EXPECT_EQ(documentWith(text, 1).error(), Error(EncodingError{"tasks[1].summary", "not valid UTF-8"}));
}

TEST(JsonWriter, TheFirstFailureIsReported) {
    EXPECT_EQ(documentWith("\xFF", notANumber).error(),
              Error(EncodingError{"tasks[1].summary", "not valid UTF-8"}));
}

TEST(JsonWriter, PlacesInArraysAreCounted) {
    JsonWriter json;
    json.beginArray();
    json.value(1);
    json.beginArray();
    json.value(1);
    json.value(notANumber);
    json.endArray();
    json.endArray();
    EXPECT_EQ(json.finish().error(), Error(EncodingError{"[1][1]", "not a finite number"}));
}

TEST(JsonWriter, StartsAgainAfterADocument) {
    JsonWriter json;
    json.value(notANumber);
    EXPECT_FALSE(json.finish());
    json.beginArray();
    json.value(1);
    EXPECT_TRUE(json.finish());
    json.value("x");
    EXPECT_EQ(json.finish(), R"("x")");
}

} // namespace
} // namespace vantel
