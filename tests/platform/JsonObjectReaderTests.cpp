#include "platform/JsonDocument.h"

#include <cmath>

#include <gtest/gtest.h>

namespace vantel {
namespace {

using namespace std::string_literals;

constexpr std::int64_t largest = 9'223'372'036'854'775'807;

/// What `read` makes of a document: the value, or where and why it fails.
template <typename Read>
auto reading(std::string_view json, Read read)
    -> std::expected<decltype(read(std::declval<JsonObjectReader&>())), std::string> {
    JsonDocument document;
    auto root = document.parseObject(json);
    if (!root)
        return std::unexpected("unreadable: " + message(root.error()));
    auto value = read(*root);
    if (root->failure())
        return std::unexpected(message(*root->failure()));
    return value;
}

std::string withValue(std::string_view value) {
    return R"({"k":)" + std::string(value) + "}";
}

auto integer(std::string_view value) {
    return reading(withValue(value), [](JsonObjectReader& object) { return object.integer("k"); });
}

auto number(std::string_view value) {
    return reading(withValue(value), [](JsonObjectReader& object) { return object.number("k"); });
}

auto text(std::string_view value) {
    return reading(withValue(value), [](JsonObjectReader& object) { return object.text("k"); });
}

auto optionalBoolean(std::string_view value) {
    return reading(withValue(value), [](JsonObjectReader& object) { return object.optionalBoolean("k"); });
}

auto optionalText(std::string_view value) {
    return reading(withValue(value), [](JsonObjectReader& object) { return object.optionalText("k"); });
}

auto optionalUrl(std::string_view value) {
    return reading(withValue(value), [](JsonObjectReader& object) { return object.optionalUrl("k"); });
}

auto optionalInstant(std::string_view value) {
    return reading(withValue(value), [](JsonObjectReader& object) { return object.optionalInstant("k"); });
}

/// The failure of a reading, or "read".
template <typename Reading>
std::string failureOf(const Reading& outcome) {
    return outcome ? "read" : outcome.error();
}

TEST(JsonObjectReader, IntegersAreNumbersOfWholeValueHoweverSpelled) {
    const struct {
        std::string_view spelling;
        std::int64_t value;
    } rows[] = {{"3", 3},
                {"3.0", 3},
                {"3e0", 3},
                {"3E+0", 3},
                {"0.3e1", 3},
                {"30e-1", 3},
                {"-3.000", -3},
                {"0", 0},
                {"-0", 0},
                {"-0.0", 0},
                {"1e-999", 0},
                {"9007199254740993", 9'007'199'254'740'993},
                {"9223372036854775807", largest},
                {"-9223372036854775807", -largest},
                {"-9223372036854775808", -largest - 1},
                {"-9223372036854774784.0", -largest + 1023},
                {"9223372036854774784.0", largest - 1023},
                {"1e18", 1'000'000'000'000'000'000}};
    for (const auto& row : rows)
        EXPECT_EQ(integer(row.spelling), row.value) << row.spelling;
}

TEST(JsonObjectReader, NothingElseIsAnInteger) {
    for (const std::string_view value : {"3.5",
                                         "-0.1",
                                         "1e-1",
                                         "true",
                                         "false",
                                         R"("3")",
                                         R"("")",
                                         "[3]",
                                         "{}",
                                         "[]",
                                         "9223372036854775808",
                                         "-9223372036854775809",
                                         "9223372036854775808.0",
                                         "-9223372036854775808.0",
                                         "-9223372036854775809.0",
                                         "18446744073709551615",
                                         "18446744073709551616",
                                         "100000000000000000000",
                                         "1e19",
                                         "-1e19",
                                         "1e300",
                                         "1e999",
                                         "-1e999"})
        EXPECT_EQ(failureOf(integer(value)), "k: not a 64-bit integer") << value;
}

TEST(JsonObjectReader, NumbersAreTheNearestDoubles) {
    const struct {
        std::string_view spelling;
        double value;
    } rows[] = {{"3", 3},
                {"0.94", 0.94},
                {"-0.5", -0.5},
                {"788918400.5", 788918400.5},
                {"1e300", 1e300},
                {"1e-400", 0},
                {"1.7976931348623157e308", 1.7976931348623157e308},
                {"5e-324", 5e-324},
                {"9223372036854775807", 0x1p63},
                {"-9223372036854775809", -0x1p63},
                {"18446744073709551615", 0x1p64},
                {"18446744073709551616", 0x1p64},
                {"-99999999999999999999", -1e20},
                {"100000000000000000000000", 1e23},
                {"0.1000000000000000055511151231257827021181583404541015625", 0.1}};
    for (const auto& row : rows)
        EXPECT_EQ(number(row.spelling), row.value) << row.spelling;
}

TEST(JsonObjectReader, TheSignOfZeroIsRead) {
    EXPECT_TRUE(std::signbit(number("-0.0").value()));
    EXPECT_FALSE(std::signbit(number("0.0").value()));
}

TEST(JsonObjectReader, ABooleanATextAndANumberBeyondAllDoublesAreNoNumbers) {
    for (const std::string_view value : {"true", "false", R"("3")", "[]", "{}", "1e999", "-1e999", "1e309"})
        EXPECT_EQ(failureOf(number(value)), "k: not a number") << value;
    EXPECT_EQ(failureOf(number(std::string(400, '9'))), "k: not a number");
}

TEST(JsonObjectReader, OnlyTrueAndFalseAreBooleans) {
    EXPECT_EQ(optionalBoolean("true").value(), std::optional(true));
    EXPECT_EQ(optionalBoolean("false").value(), std::optional(false));
    EXPECT_EQ(optionalBoolean("null").value(), std::optional<bool>());
    for (const std::string_view value : {"0", "1", "1.0", R"("true")", "[]", "{}", "1e999"})
        EXPECT_EQ(failureOf(optionalBoolean(value)), "k: not a boolean") << value;
}

TEST(JsonObjectReader, OnlyStringsAreTexts) {
    EXPECT_EQ(text(R"("")"), "");
    EXPECT_EQ(text(R"("a\u0000b")"), "a\0b"s);
    for (const std::string_view value : {"0", "true", "[]", "{}", R"(["a"])", "1e999"})
        EXPECT_EQ(failureOf(text(value)), "k: not a string") << value;
}

TEST(JsonObjectReader, RequiredFieldsAreNeitherMissingNorNull) {
    const auto missing = [](auto read) { return failureOf(reading(R"({"K":1," k":1,"kk":1})", read)); };
    EXPECT_EQ(missing([](JsonObjectReader& object) { return object.text("k"); }), "k: missing");
    EXPECT_EQ(missing([](JsonObjectReader& object) { return object.integer("k"); }), "k: missing");
    EXPECT_EQ(missing([](JsonObjectReader& object) { return object.number("k"); }), "k: missing");
    EXPECT_EQ(missing([](JsonObjectReader& object) { return object.instant("k"); }), "k: missing");
    EXPECT_EQ(failureOf(text("null")), "k: null");
    EXPECT_EQ(failureOf(integer("null")), "k: null");
    EXPECT_EQ(failureOf(number("null")), "k: null");
}

TEST(JsonObjectReader, OptionalFieldsMayBeMissingOrNull) {
    const auto absent = reading(R"({"K":1})", [](JsonObjectReader& object) {
        return object.optionalText("k") || object.optionalInstant("k") || object.optionalUrl("k") ||
               object.optionalBoolean("k");
    });
    EXPECT_EQ(absent, false);
    EXPECT_EQ(optionalText("null").value(), std::optional<std::string>());
    EXPECT_EQ(optionalUrl("null").value(), std::optional<Url>());
    EXPECT_EQ(optionalInstant("null").value(), std::optional<Instant>());
}

TEST(JsonObjectReader, OptionalFieldsOfAWrongTypeFail) {
    EXPECT_EQ(failureOf(optionalText("1")), "k: not a string");
    EXPECT_EQ(failureOf(optionalUrl("1")), "k: not a string");
    EXPECT_EQ(failureOf(optionalUrl(R"("zoom.us")")), "k: not an absolute URL");
    EXPECT_EQ(failureOf(optionalUrl(R"("")")), "k: not an absolute URL");
    EXPECT_EQ(failureOf(optionalInstant("true")), "k: not a number");
    EXPECT_EQ(failureOf(optionalInstant(R"("2026-01-01")")), "k: not a number");
}

TEST(JsonObjectReader, InstantsAreSecondsSince2001) {
    EXPECT_EQ(optionalInstant("788918400.5").value(), std::optional(instantFromReference(788918400.5)));
    EXPECT_EQ(optionalInstant("0").value(), std::optional(instantFromReference(0)));
    EXPECT_EQ(optionalInstant("-1e300").value(), std::optional(instantFromReference(-1e300)));
}

TEST(JsonObjectReader, OfDuplicateKeysTheFirstCounts) {
    const auto first = [](std::string_view json) {
        return reading(json, [](JsonObjectReader& object) { return object.optionalText("key"); });
    };
    EXPECT_EQ(first(R"({"key":"a","key":"b"})").value(), std::optional("a"s));
    EXPECT_EQ(first(R"({"\u006bey":"a","key":"b"})").value(), std::optional("a"s));
    EXPECT_EQ(first(R"({"x":1,"key":"a","k\u0065y":1})").value(), std::optional("a"s));
    EXPECT_EQ(first(R"({"key":null,"key":"b"})").value(), std::optional<std::string>());
    EXPECT_EQ(failureOf(first(R"({"key":1,"key":"b"})")), "key: not a string");
}

TEST(JsonObjectReader, KeysAreComparedWhole) {
    const auto found = [](std::string_view json) {
        return reading(json, [](JsonObjectReader& object) { return object.optionalText("key"); });
    };
    for (const std::string_view json :
         {R"({"Key":"a"})", R"({"ke":"a"})", R"({"keys":"a"})", R"({"key\u0000":"a"})", R"({"":"a"})",
          R"({" key":"a"})", R"({"x":{"key":"a"}})"})
        EXPECT_EQ(found(json).value(), std::optional<std::string>()) << json;
}

struct Pair {
    std::int64_t a;
    std::int64_t b;

    bool operator==(const Pair&) const = default;
};

Pair decodePair(JsonObjectReader& object) {
    return {.a = object.integer("a"), .b = object.integer("b")};
}

auto pairs(std::string_view value) {
    return reading(withValue(value),
                   [](JsonObjectReader& object) { return object.objects("k", decodePair); });
}

auto optionalPair(std::string_view value) {
    return reading(withValue(value),
                   [](JsonObjectReader& object) { return object.optionalObject("k", decodePair); });
}

TEST(JsonObjectReader, ArraysOfObjectsKeepTheirOrder) {
    EXPECT_EQ(pairs("[]"), std::vector<Pair>());
    EXPECT_EQ(pairs(R"([{"a":1,"b":2},{"b":4,"a":3}])"), (std::vector<Pair>{{1, 2}, {3, 4}}));
}

TEST(JsonObjectReader, FailuresInsideAnArrayTellThePlace) {
    EXPECT_EQ(failureOf(pairs("{}")), "k: not an array");
    EXPECT_EQ(failureOf(pairs("1e999")), "k[0]: not an object");
    EXPECT_EQ(failureOf(pairs("null")), "k: null");
    EXPECT_EQ(failureOf(pairs(R"([{"a":1,"b":2},null])")), "k[1]: not an object");
    EXPECT_EQ(failureOf(pairs(R"([{"a":1,"b":2},[]])")), "k[1]: not an object");
    EXPECT_EQ(failureOf(pairs(R"([{"a":1,"b":2},{"a":1,"b":2},{"a":1}])")), "k[2].b: missing");
    EXPECT_EQ(failureOf(pairs(R"([{"a":1.5},{"a":2.5}])")), "k[0].a: not a 64-bit integer");
    EXPECT_EQ(failureOf(pairs(R"([1e999])")), "k[0]: not an object");
}

TEST(JsonObjectReader, FailuresInsideAnObjectTellThePlace) {
    EXPECT_EQ(optionalPair(R"({"a":1,"b":2})").value(), std::optional(Pair{1, 2}));
    EXPECT_EQ(optionalPair("null").value(), std::optional<Pair>());
    EXPECT_EQ(failureOf(optionalPair(R"({"a":1})")), "k.b: missing");
    EXPECT_EQ(failureOf(optionalPair(R"([])")), "k: not an object");
    EXPECT_EQ(failureOf(optionalPair("1e999")), "k: not an object");
}

TEST(JsonObjectReader, PathsReachThroughEveryLevel) {
    const auto nested = [](JsonObjectReader& object) {
        return object.objects("outer", [](JsonObjectReader& middle) {
            return middle.optionalObject(
                "middle", [](JsonObjectReader& inner) { return inner.objects("inner", decodePair); });
        });
    };
    EXPECT_EQ(failureOf(reading(R"({"outer":[{},{"middle":{"inner":[{"a":1,"b":"x"}]}}]})", nested)),
              "outer[1].middle.inner[0].b: not a 64-bit integer");
}

TEST(JsonObjectReader, TheFirstFailureStopsTheReading) {
    const auto both = [](JsonObjectReader& object) {
        object.integer("b");
        object.integer("a");
        EXPECT_EQ(object.text("c"), "") << "read on after a failure";
        EXPECT_FALSE(object.optionalText("c"));
        EXPECT_TRUE(object.objects("d", decodePair).empty());
        EXPECT_FALSE(object.optionalObject("e", decodePair));
        return 0;
    };
    EXPECT_EQ(failureOf(reading(R"({"a":"x","b":"x","c":"x","d":[{"a":1,"b":1}],"e":{"a":1,"b":1}})", both)),
              "b: not a 64-bit integer");
}

TEST(JsonObjectReader, ParsedTextsFailWithTheirOwnReason) {
    const auto parse = [](std::string_view raw) { return raw == "yes" ? std::optional(1) : std::nullopt; };
    const auto parsed = [&](std::string_view json) {
        return reading(json,
                       [&](JsonObjectReader& object) { return object.parsedText("k", parse, "not a yes"); });
    };
    EXPECT_EQ(parsed(R"({"k":"yes"})"), 1);
    EXPECT_EQ(failureOf(parsed(R"({"k":"no"})")), "k: not a yes");
    EXPECT_EQ(failureOf(parsed(R"({"k":1})")), "k: not a string");
    EXPECT_EQ(failureOf(parsed(R"({"k":null})")), "k: null");
    EXPECT_EQ(failureOf(parsed("{}")), "k: missing");
}

} // namespace
} // namespace vantel
