#include "tests/core/JsonCases.h"

#include <cctype>
#include <string_view>

namespace vantel::testing {

namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

std::string quoted(std::string_view inner) {
    return "\"" + std::string(inner) + "\"";
}

JsonCase validText(std::string_view inner) {
    return valid(quoted(inner), JsonValue::text);
}

JsonCase invalidText(std::string_view inner) {
    return invalid(quoted(inner));
}

void addControlCharacters(std::vector<JsonCase>& cases) {
    for (char c = 0; c < 0x20; ++c)
        cases.push_back(invalidText(std::string("a") + c + "b"));
    cases.push_back(validText("a\x7F"
                              "b"));
}

void addEscapes(std::vector<JsonCase>& cases) {
    constexpr std::string_view known = "\"\\/bfnrt";
    for (char c = 0x20; c < 0x7F; ++c)
        if (c != 'u')
            cases.push_back(known.contains(c) ? validText(std::string("\\") + c)
                                              : invalidText(std::string("\\") + c));
    for (const std::string_view bad :
         {"\\\0"sv, "\\\n"sv, "\\\x7F"sv, "\\\u00E4"sv, "\\u"sv, "\\u1"sv, "\\u12"sv, "\\u123"sv, "\\u123g"sv,
          "\\u 123"sv, "\\u-123"sv, "\\u+123"sv, "\\u{41}"sv, "\\U0041"sv, "\\x41"sv, "\\u00\n1"sv,
          "\\\\\\"sv})
        cases.push_back(invalidText(bad));
    for (const char* good :
         {"\\u0000",        "\\u001F",        "\\u001f",   "\\u0020",        "\\u007F",
          "\\u0080",        "\\u07FF",        "\\u0800",   "\\uD7FF",        "\\uE000",
          "\\uFDD0",        "\\uFEFF",        "\\uFFFE",   "\\uffff",        "\\uD800\\uDC00",
          "\\udbff\\udfff", "\\uD83D\\uDE00", "\\\\u0041", "\\u00e4\\u00E4", "a\\u0000b"})
        cases.push_back(validText(good));
}

/// The grammar allows them, but no encoding of Unicode can hold them.
void addHalfPairs(std::vector<JsonCase>& cases) {
    for (const char* half : {"\\uD800", "\\uDBFF", "\\uDC00", "\\uDFFF", "\\uD800\\uD800", "\\uDC00\\uD800",
                             "\\uD800x", "\\uD800\\n", "\\uD800\\u0041", "x\\uDC00", "\\uDC00\\uDC00",
                             "\\uD83D\\uDE00\\uD83D", "\\uD800\\uE000", "\\ud800\\\\udc00"})
        cases.push_back({quoted(half), quoted(half), Standing::leftOpen, std::nullopt});
    cases.push_back(invalidText("\\uD800\\uDC"));
    cases.push_back(invalidText("\\uD800\\u"));
}

void addQuotes(std::vector<JsonCase>& cases) {
    for (const char* other : {"\"",
                              "\"a",
                              "a\"",
                              "\"\\\"",
                              "\"\\\\\\\"",
                              "'a'",
                              "`a`",
                              "\"a'",
                              "\"a\"\"b\"",
                              "\"a\" \"b\"",
                              "\"a\"b",
                              "b\"a\"",
                              "\"a\"b\"",
                              "\"\"\"",
                              "\xE2\x80\x9C"
                              "a\xE2\x80\x9D",
                              "\"a\"+\"b\"",
                              "\"a\\",
                              "u\"a\"",
                              "\"a\",",
                              "\"a\":"})
        cases.push_back(invalid(other));
}

} // namespace

std::vector<JsonCase> textCases() {
    std::vector<JsonCase> cases = {
        validText(""),       validText("a"),      validText(" "),
        validText("[]{},:"), validText("/"),      validText("null"),
        validText("1"),      validText("'"),      validText(std::string(100'000, 'x')),
        validText("// a"),   validText("/* a */")};
    addControlCharacters(cases);
    addEscapes(cases);
    addHalfPairs(cases);
    addQuotes(cases);
    return cases;
}

} // namespace vantel::testing
