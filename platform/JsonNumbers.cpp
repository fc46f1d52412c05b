#include "platform/JsonNumbers.h"

#include <algorithm>

#include <simdjson.h>

namespace vantel {

namespace {

constexpr std::string_view tooLarge = "[[]]";

constexpr std::string_view numberCharacters = "+-.0123456789eE";
constexpr std::string_view beginnings = "\"+-.0123456789eE";

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool skip(std::string_view& text, std::string_view characters) {
    const bool isThere = !text.empty() && characters.contains(text.front());
    text.remove_prefix(isThere ? 1 : 0);
    return isThere;
}

bool skipDigits(std::string_view& text) {
    const auto end = std::ranges::find_if_not(text, isDigit);
    const bool areThere = end != text.begin();
    text.remove_prefix(static_cast<std::size_t>(end - text.begin()));
    return areThere;
}

/// Whether the text is a number by the grammar of JSON, of whatever size.
bool isNumber(std::string_view text) {
    skip(text, "-");
    if (!skip(text, "0") && !skipDigits(text))
        return false;
    if (skip(text, ".") && !skipDigits(text))
        return false;
    if (skip(text, "eE")) {
        skip(text, "+-");
        if (!skipDigits(text))
            return false;
    }
    return text.empty();
}

/// Short texts without an exponent are spared the question.
bool mayBeTooLarge(std::string_view number) {
    constexpr std::size_t longestThatFits = 18;
    return number.size() > longestThatFits || number.find_first_of("eE") != std::string_view::npos;
}

std::size_t endOfString(std::string_view json, std::size_t quote) {
    std::size_t i = quote + 1;
    while (i < json.size() && json[i] != '"')
        i += json[i] == '\\' ? 2 : 1;
    return std::min(i + 1, json.size());
}

/// The end of the text, the run of number characters or the run of neither that begins at `begin`.
std::size_t endOfToken(std::string_view json, std::size_t begin) {
    if (json[begin] == '"')
        return endOfString(json, begin);
    const bool isNumber = numberCharacters.contains(json[begin]);
    const std::size_t end =
        isNumber ? json.find_first_not_of(numberCharacters, begin) : json.find_first_of(beginnings, begin);
    return std::min(end, json.size());
}

class NumberWriter {
public:
    std::string inRange(std::string_view number) {
        std::string text(number);
        if (!mayBeTooLarge(number) || parses(text) || !isNumber(number))
            return text;
        const std::string asDouble = text + "e0";
        return parses(asDouble) ? asDouble : std::string(tooLarge);
    }

private:
    bool parses(const std::string& text) { return m_parser.parse(text).error() == simdjson::SUCCESS; }

    simdjson::dom::parser m_parser;
};

} // namespace

std::string withNumbersInRange(std::string_view json) {
    NumberWriter numbers;
    std::string result;
    result.reserve(json.size());
    for (std::size_t i = 0; i < json.size();) {
        const std::string_view token = json.substr(i, endOfToken(json, i) - i);
        if (numberCharacters.contains(token.front()))
            result += numbers.inRange(token);
        else
            result += token;
        i += token.size();
    }
    return result;
}

} // namespace vantel
