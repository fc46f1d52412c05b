#include "platform/JsonDocument.h"

#include "platform/CheckedMath.h"
#include "platform/JsonNumbers.h"

#include <cmath>

namespace vantel {

namespace {

using simdjson::dom::element_type;

/// The smallest integer is no double's: integers below it round to the same one.
std::optional<std::int64_t> wholeNumber(double value) {
    return std::trunc(value) == value && value > -0x1p63 ? truncatedToInteger(value) : std::nullopt;
}

Error invalidDocument(simdjson::error_code code) {
    switch (code) {
    case simdjson::UTF8_ERROR:
        return DecodingError{"", "not valid UTF-8"};
    case simdjson::EMPTY:
        return DecodingError{"", "empty"};
    case simdjson::DEPTH_ERROR:
        return DecodingError{"", "nested too deeply"};
    case simdjson::CAPACITY:
    case simdjson::MEMALLOC:
        return DecodingError{"", "too large"};
    case simdjson::NUMBER_ERROR:
        return DecodingError{"", "not valid JSON: a number is malformed"};
    case simdjson::STRING_ERROR:
        return DecodingError{"", "not valid JSON: a text is malformed"};
    default:
        return DecodingError{"", "not valid JSON"};
    }
}

} // namespace

std::optional<bool> JsonObjectReader::optionalBoolean(std::string_view key) {
    const auto element = present(key);
    if (!element)
        return std::nullopt;
    bool value = false;
    if (element->get_bool().get(value) != simdjson::SUCCESS)
        failAt(key, "not a boolean");
    return value;
}

std::optional<Url> JsonObjectReader::optionalUrl(std::string_view key) {
    const auto element = present(key);
    if (!element)
        return std::nullopt;
    auto url = parseUrl(viewFrom(*element, key));
    if (!url)
        failAt(key, "not an absolute URL");
    return url;
}

std::int64_t JsonObjectReader::integerFrom(Element element, std::string_view key) {
    if (element.type() == element_type::INT64)
        return element.get_int64().value_unsafe();
    if (element.type() == element_type::DOUBLE)
        if (const auto whole = wholeNumber(element.get_double().value_unsafe()))
            return *whole;
    failAt(key, "not a 64-bit integer");
    return 0;
}

void JsonObjectReader::failAt(std::string_view key, const char* reason) {
    fail(std::string(key), reason);
}

void JsonObjectReader::failAbsent(std::string_view key) {
    const bool isNull = m_object.at_key(key).error() == simdjson::SUCCESS;
    failAt(key, isNull ? "null" : "missing");
}

void JsonObjectReader::fail(std::string path, std::string reason) {
    if (!m_failure)
        m_failure = DecodingError{std::move(path), std::move(reason)};
}

void JsonObjectReader::adopt(const std::string& path, const JsonObjectReader& inner) {
    fail(path + "." + inner.failure()->keyPath, inner.failure()->reason);
}

Result<JsonObjectReader> JsonDocument::parseObject(std::string_view bytes) {
    if (bytes.starts_with("\xEF\xBB\xBF"))
        return std::unexpected(DecodingError{"", "starts with a byte order mark"});
    simdjson::dom::element root;
    auto code = m_parser.parse(bytes.data(), bytes.size()).get(root);
    if (code != simdjson::SUCCESS)
        if (const std::string inRange = withNumbersInRange(bytes); inRange != bytes)
            code = m_parser.parse(inRange).get(root);
    if (code != simdjson::SUCCESS)
        return std::unexpected(invalidDocument(code));
    simdjson::dom::object object;
    if (root.get_object().get(object) != simdjson::SUCCESS)
        return std::unexpected(DecodingError{"", "not an object"});
    return JsonObjectReader(object);
}

} // namespace vantel
