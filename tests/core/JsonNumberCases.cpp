#include "tests/core/JsonCases.h"

#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <tuple>

namespace vantel::testing {

namespace {

JsonValue classOfDouble(double value) {
    if (std::isinf(value))
        return JsonValue::beyondDoubles;
    const bool fits = value > -0x1p63 && value < 0x1p63;
    return fits && std::trunc(value) == value ? JsonValue::integer : JsonValue::number;
}

JsonValue classOf(const std::string& number) {
    if (number.find_first_of(".eE") != std::string::npos)
        return classOfDouble(std::strtod(number.c_str(), nullptr));
    errno = 0;
    std::ignore = std::strtoll(number.c_str(), nullptr, 10);
    if (errno != ERANGE)
        return JsonValue::integer;
    return std::isinf(std::strtod(number.c_str(), nullptr)) ? JsonValue::beyondDoubles : JsonValue::number;
}

JsonCase spelled(const std::string& text, bool isAllowed) {
    return isAllowed ? valid(text, classOf(text)) : invalid(text);
}

using Pieces = std::vector<std::string>;

/// The pieces of a number's spelling, in their order.
struct Spellings {
    Pieces signs;
    Pieces wholes;
    Pieces fractions;
    Pieces exponents;
};

void addSpellings(std::vector<JsonCase>& cases, const Spellings& spellings, bool areAllowed) {
    for (const std::string& sign : spellings.signs)
        for (const std::string& whole : spellings.wholes)
            for (const std::string& fraction : spellings.fractions)
                for (const std::string& exponent : spellings.exponents)
                    cases.push_back(spelled(sign + whole + fraction + exponent, areAllowed));
}

void addEverySpelling(std::vector<JsonCase>& cases) {
    addSpellings(cases,
                 {{"", "-"},
                  {"0", "1", "12", "9007199254740993", "9223372036854775807", "9223372036854775808",
                   "9223372036854775809", "18446744073709551615", "18446744073709551616",
                   "100000000000000000000", std::string(308, '9'), std::string(400, '9')},
                  {"", ".0", ".5", "." + std::string(400, '0') + "1"},
                  {"", "e0", "E5", "e+5", "e-5", "e05", "e308", "e-400", "e400"}},
                 true);
}

/// One piece of each is not allowed in its place.
void addNearSpellings(std::vector<JsonCase>& cases) {
    const Spellings good = {{"", "-"}, {"0", "12", "9223372036854775808"}, {"", ".5"}, {"", "e5"}};
    const Spellings bad = {{"+", "--", "- "},
                           {"", "00", "01", "1_0", "0x1", "1 2", "\xEF\xBC\x91"},
                           {".", "..5", ".5.", ".-5"},
                           {"e", "e+", "e-", "e1.5", "ee5", "e 5", "e+-5", "e5e5"}};
    addSpellings(cases, {bad.signs, good.wholes, good.fractions, good.exponents}, false);
    addSpellings(cases, {good.signs, bad.wholes, good.fractions, good.exponents}, false);
    addSpellings(cases, {good.signs, good.wholes, bad.fractions, good.exponents}, false);
    addSpellings(cases, {good.signs, good.wholes, good.fractions, bad.exponents}, false);
}

void addPowersOfTwo(std::vector<JsonCase>& cases) {
    unsigned long long power = 1;
    for (int exponent = 0; exponent < 64; ++exponent, power *= 2)
        for (const unsigned long long number : {power - 1, power, power + 1})
            for (const char* sign : {"", "-"})
                cases.push_back(spelled(sign + std::to_string(number), true));
}

} // namespace

std::vector<JsonCase> numberCases() {
    std::vector<JsonCase> cases;
    addEverySpelling(cases);
    addNearSpellings(cases);
    addPowersOfTwo(cases);
    for (const char* limit : {"1.7976931348623157e308",
                              "1.7976931348623158e308",
                              "-1.7976931348623157e308",
                              "1.7976931348623159e308",
                              "1.8e308",
                              "-1.8e308",
                              "4.9e-324",
                              "5e-324",
                              "2e-324",
                              "2.2250738585072014e-308",
                              "2.225073858507201e-308",
                              "-0",
                              "-0.0",
                              "-0e0",
                              "1e19",
                              "-9223372036854775808.0",
                              "9223372036854775807.0",
                              "9223372036854774784.0",
                              "1e999999999999",
                              "1e-999999999999",
                              "0e999999999999"})
        cases.push_back(spelled(limit, true));
    for (const char* other : {"NaN",
                              "nan",
                              "-NaN",
                              "Infinity",
                              "-Infinity",
                              "inf",
                              "0b1",
                              "0o7",
                              "1f",
                              "1L",
                              "1n",
                              "1'000",
                              "1 000",
                              "-a",
                              "-",
                              "+",
                              ".",
                              "e",
                              "e5",
                              "-e5",
                              "1-1",
                              "1+1",
                              "1.0x",
                              "0x",
                              "-0x1",
                              "1/2",
                              "$1",
                              "1%",
                              "\xE2\x88\x9E",
                              "\xD9\xA3",
                              "\xE2\x88\x92"
                              "1"})
        cases.push_back(spelled(other, false));
    return cases;
}

} // namespace vantel::testing
