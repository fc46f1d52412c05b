#include "tests/core/JsonCases.h"

#include <string_view>

namespace vantel::testing {

namespace {

using namespace std::string_view_literals;

std::string bytes(std::initializer_list<int> values) {
    std::string text;
    for (const int value : values)
        text += static_cast<char>(value);
    return text;
}

/// The same bytes as a text, inside a text, and as a key.
void addInTexts(std::vector<JsonCase>& cases, const std::string& text, bool isUtf8) {
    for (const std::string& json : {"\"" + text + "\"", "\"a" + text + "b\""})
        cases.push_back(isUtf8 ? valid(json, JsonValue::text) : invalid(json));
    const std::string key = "{\"" + text + "\":0}";
    cases.push_back(isUtf8 ? valid(key, JsonValue::object) : invalid(key));
}

void addSingleBytes(std::vector<JsonCase>& cases) {
    for (int byte = 0x80; byte <= 0xFF; ++byte)
        addInTexts(cases, bytes({byte}), false);
}

void addCutSequences(std::vector<JsonCase>& cases) {
    for (const auto& whole :
         {bytes({0xC3, 0xA4}), bytes({0xE2, 0x82, 0xAC}), bytes({0xF0, 0x9F, 0x98, 0x80})})
        for (std::size_t length = 1; length <= whole.size(); ++length) {
            addInTexts(cases, whole.substr(0, length), length == whole.size());
            addInTexts(cases, whole + whole.substr(0, length), length == whole.size());
        }
}

void addForbiddenSequences(std::vector<JsonCase>& cases) {
    for (const auto& sequence : {bytes({0xC0, 0x80}),
                                 bytes({0xC0, 0xAF}),
                                 bytes({0xC1, 0xBF}),
                                 bytes({0xE0, 0x80, 0x80}),
                                 bytes({0xE0, 0x80, 0xAF}),
                                 bytes({0xE0, 0x9F, 0xBF}),
                                 bytes({0xF0, 0x80, 0x80, 0x80}),
                                 bytes({0xF0, 0x80, 0x80, 0xAF}),
                                 bytes({0xF0, 0x8F, 0xBF, 0xBF}),
                                 bytes({0xED, 0xA0, 0x80}),
                                 bytes({0xED, 0xAF, 0xBF}),
                                 bytes({0xED, 0xB0, 0x80}),
                                 bytes({0xED, 0xBF, 0xBF}),
                                 bytes({0xED, 0xA0, 0x80, 0xED, 0xB0, 0x80}),
                                 bytes({0xF4, 0x90, 0x80, 0x80}),
                                 bytes({0xF5, 0x80, 0x80, 0x80}),
                                 bytes({0xF7, 0xBF, 0xBF, 0xBF}),
                                 bytes({0xF8, 0x88, 0x80, 0x80, 0x80}),
                                 bytes({0xFC, 0x84, 0x80, 0x80, 0x80, 0x80}),
                                 bytes({0xFE, 0xFF}),
                                 bytes({0xFF, 0xFE}),
                                 bytes({0x80, 0xC3}),
                                 bytes({0xC3, 0xC3}),
                                 bytes({0xE2, 0x82, 0xC3}),
                                 bytes({0xE2, 0xC3, 0xA4}),
                                 bytes({0xC3, 0xA4, 0xA4}),
                                 bytes({0xF0, 0x9F, 0x98, 0xC3})})
        addInTexts(cases, sequence, false);
}

void addLastOfEachLength(std::vector<JsonCase>& cases) {
    for (const auto& sequence :
         {bytes({0xC2, 0x80}), bytes({0xDF, 0xBF}), bytes({0xE0, 0xA0, 0x80}), bytes({0xED, 0x9F, 0xBF}),
          bytes({0xEE, 0x80, 0x80}), bytes({0xEF, 0xBF, 0xBF}), bytes({0xEF, 0xBB, 0xBF}),
          bytes({0xE2, 0x80, 0xA8}), bytes({0xF0, 0x90, 0x80, 0x80}), bytes({0xF4, 0x8F, 0xBF, 0xBF})})
        addInTexts(cases, sequence, true);
}

/// A character of another encoding, or of none, beside a value.
void addOutsideTexts(std::vector<JsonCase>& cases) {
    for (const auto stray : {"\0"sv, "\x01"sv, "\v"sv, "\f"sv, "\x1A"sv, "\x1E"sv, "\x7F"sv, "\x80"sv,
                             "\xA0"sv, "\xC2\xA0"sv, "\xC2\x85"sv, "\xE2\x80\xA8"sv, "\xE2\x81\xA0"sv,
                             "\xE3\x80\x80"sv, "\xEF\xBB\xBF"sv, "\xFE\xFF"sv, "\xFF\xFE"sv, "\xFF"sv}) {
        cases.push_back(invalid(std::string(stray)));
        cases.push_back(invalid(std::string(stray) + "1"));
        cases.push_back(invalid("1" + std::string(stray)));
        cases.push_back(invalid("[" + std::string(stray) + "]"));
    }
    for (const auto wide : {"1\0"sv, "\0001"sv, "\"\0a\0\"\0"sv, "\0\"\0a\0\""sv, "\xFF\xFE[\0]\0"sv,
                            "\xFE\xFF\0[\0]"sv, "[\0\0\0]\0\0\0"sv, "+AFs-"sv, "\\u005B\\u005D"sv})
        cases.push_back(invalid(std::string(wide)));
}

} // namespace

std::vector<JsonCase> encodingCases() {
    std::vector<JsonCase> cases;
    addSingleBytes(cases);
    addCutSequences(cases);
    addForbiddenSequences(cases);
    addLastOfEachLength(cases);
    addOutsideTexts(cases);
    return cases;
}

} // namespace vantel::testing
