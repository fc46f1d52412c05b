#pragma once

#include "platform/Error.h"
#include "platform/Instant.h"
#include "platform/Url.h"

#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include <simdjson.h>

namespace vantel {

/// Reads the fields of one JSON object, strictly, into records.
///
/// The first field that is not what it should be stops the reading: `failure()` then tells where and why, and
/// every later read gives an empty value that must not be used. So a record is read in one expression, and
/// asked once at the end. Of duplicate keys the first counts. An optional field may be missing or `null`; a
/// required one may be neither. Each key is read once. A number is an integer when its value is one (`3`,
/// `3.0`, `3e0`) and fits 64 bits; a boolean is never a number.
///
/// A reader looks into its JsonDocument and must not outlive it.
class JsonObjectReader {
public:
    explicit JsonObjectReader(simdjson::dom::object object)
        : m_object(object)
        , m_next(object.begin())
        , m_end(object.end()) {}

    std::string text(std::string_view key);
    std::optional<std::string> optionalText(std::string_view key);
    std::int64_t integer(std::string_view key);
    double number(std::string_view key);
    std::optional<bool> optionalBoolean(std::string_view key);
    Instant instant(std::string_view key);
    std::optional<Instant> optionalInstant(std::string_view key);
    std::optional<Url> optionalUrl(std::string_view key);

    /// A required text that `parse` turns into a value, or into nothing, which fails with `reason`.
    template <typename Parse>
    auto parsedText(std::string_view key, Parse parse, std::string_view reason);

    /// A required array of objects, each read by `decode` (a function of JsonObjectReader&).
    template <typename Decode>
    auto objects(std::string_view key, Decode decode);

    template <typename Decode>
    auto optionalObject(std::string_view key, Decode decode);

    const std::optional<DecodingError>& failure() const { return m_failure; }

private:
    using Element = simdjson::dom::element;
    using Position = simdjson::dom::object::iterator;

    static bool isAt(const Position& position, std::string_view key);
    std::optional<Element> present(std::string_view key);
    std::optional<Element> required(std::string_view key);
    std::string_view viewFrom(Element element, std::string_view key);
    std::int64_t integerFrom(Element element, std::string_view key);
    double numberFrom(Element element, std::string_view key);
    void failAt(std::string_view key, const char* reason);
    void failAbsent(std::string_view key);
    void fail(std::string path, std::string reason);
    void adopt(const std::string& path, const JsonObjectReader& inner);

    simdjson::dom::object m_object;
    /// Most writers keep the records' order, so the search begins where the last field ended. Every field
    /// before it was read under its own key: none of them is an earlier duplicate.
    Position m_next;
    Position m_end;
    std::optional<DecodingError> m_failure;
};

/// One JSON document: UTF-8 without a byte order mark, valid from its first byte to its last. Numbers may be
/// of any size; one that is beyond all doubles is refused only where it is read. Keeps the parsed text alive
/// for its readers. Parsing never throws and never recurses.
class JsonDocument {
public:
    /// Parses a document whose root is an object. Any earlier reader of this document becomes invalid.
    Result<JsonObjectReader> parseObject(std::string_view bytes);

private:
    simdjson::dom::parser m_parser;
};

// The reading of single fields is inlined, so that the compiler knows each key's length where it compares.

[[gnu::always_inline]] inline bool JsonObjectReader::isAt(const Position& position, std::string_view key) {
    return position.key_length() == key.size() &&
           std::memcmp(position.key_c_str(), key.data(), key.size()) == 0;
}

[[gnu::always_inline]] inline std::optional<JsonObjectReader::Element>
JsonObjectReader::present(std::string_view key) {
    if (m_failure)
        return std::nullopt;
    Position position = m_next;
    while (position != m_end && !isAt(position, key))
        ++position;
    if (position == m_end)
        return std::nullopt;
    const Element element = position.value();
    if (position == m_next)
        ++m_next;
    return element.is_null() ? std::nullopt : std::optional(element);
}

[[gnu::always_inline]] inline std::optional<JsonObjectReader::Element>
JsonObjectReader::required(std::string_view key) {
    const auto element = present(key);
    if (!element)
        failAbsent(key);
    return element;
}

[[gnu::always_inline]] inline std::string_view JsonObjectReader::viewFrom(Element element,
                                                                          std::string_view key) {
    std::string_view value;
    if (element.get_string().get(value) != simdjson::SUCCESS)
        failAt(key, "not a string");
    return value;
}

[[gnu::always_inline]] inline double JsonObjectReader::numberFrom(Element element, std::string_view key) {
    double value = 0;
    if (element.get_double().get(value) != simdjson::SUCCESS)
        failAt(key, "not a number");
    return value;
}

[[gnu::always_inline]] inline std::string JsonObjectReader::text(std::string_view key) {
    const auto element = required(key);
    return element ? std::string(viewFrom(*element, key)) : std::string();
}

[[gnu::always_inline]] inline std::optional<std::string>
JsonObjectReader::optionalText(std::string_view key) {
    const auto element = present(key);
    return element ? std::optional<std::string>(viewFrom(*element, key)) : std::nullopt;
}

[[gnu::always_inline]] inline std::int64_t JsonObjectReader::integer(std::string_view key) {
    const auto element = required(key);
    return element ? integerFrom(*element, key) : 0;
}

[[gnu::always_inline]] inline double JsonObjectReader::number(std::string_view key) {
    const auto element = required(key);
    return element ? numberFrom(*element, key) : 0;
}

[[gnu::always_inline]] inline Instant JsonObjectReader::instant(std::string_view key) {
    return instantFromReference(number(key));
}

[[gnu::always_inline]] inline std::optional<Instant> JsonObjectReader::optionalInstant(std::string_view key) {
    const auto element = present(key);
    return element ? std::optional(instantFromReference(numberFrom(*element, key))) : std::nullopt;
}

template <typename Parse>
auto JsonObjectReader::parsedText(std::string_view key, Parse parse, std::string_view reason) {
    const std::string raw = text(key);
    auto value = parse(raw);
    if (!value)
        fail(std::string(key), std::string(reason));
    return value ? *value : typename decltype(value)::value_type{};
}

/// Becomes what the function returns where that is built, without a move.
template <typename Make>
struct InPlace {
    Make make;
    operator std::invoke_result_t<Make>() const { return make(); }
};

template <typename Decode>
auto JsonObjectReader::objects(std::string_view key, Decode decode) {
    std::vector<decltype(decode(*this))> records;
    const auto element = required(key);
    if (!element)
        return records;
    simdjson::dom::array array;
    if (element->get_array().get(array) != simdjson::SUCCESS) {
        fail(std::string(key), "not an array");
        return records;
    }
    records.reserve(array.size());
    for (const Element item : array) {
        simdjson::dom::object object;
        if (item.get_object().get(object) != simdjson::SUCCESS) {
            fail(std::string(key) + "[" + std::to_string(records.size()) + "]", "not an object");
            return records;
        }
        JsonObjectReader reader(object);
        records.emplace_back(InPlace{[&] { return decode(reader); }});
        if (reader.failure()) {
            adopt(std::string(key) + "[" + std::to_string(records.size() - 1) + "]", reader);
            return records;
        }
    }
    return records;
}

template <typename Decode>
auto JsonObjectReader::optionalObject(std::string_view key, Decode decode) {
    std::optional<decltype(decode(*this))> record;
    const auto element = present(key);
    if (!element)
        return record;
    simdjson::dom::object object;
    if (element->get_object().get(object) != simdjson::SUCCESS) {
        fail(std::string(key), "not an object");
        return record;
    }
    JsonObjectReader reader(object);
    record = decode(reader);
    if (reader.failure())
        adopt(std::string(key), reader);
    return record;
}

} // namespace vantel
