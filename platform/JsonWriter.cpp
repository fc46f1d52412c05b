#include "platform/JsonWriter.h"

#include <array>
#include <charconv>
#include <cmath>
#include <utility>

#include <simdjson.h>

namespace vantel {

namespace {

template <typename Number>
void appendNumber(std::string& json, Number number) {
    std::array<char, 32> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number).ptr;
    json.append(buffer.data(), end);
}

bool needsEscape(char c) {
    return static_cast<unsigned char>(c) < 0x20 || c == '"' || c == '\\';
}

} // namespace

void JsonWriter::beginObject() {
    begin('{', false);
}

void JsonWriter::endObject() {
    end('}');
}

void JsonWriter::beginArray() {
    begin('[', true);
}

void JsonWriter::endArray() {
    end(']');
}

void JsonWriter::key(std::string_view name) {
    Level& level = m_levels.back();
    if (level.count++ > 0)
        m_json += ',';
    level.key = name;
    m_json += '"';
    m_json += name;
    m_json += "\":";
}

void JsonWriter::value(std::string_view text) {
    separate();
    if (!simdjson::validate_utf8(text.data(), text.size()))
        fail("not valid UTF-8");
    m_json += '"';
    std::size_t written = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (!needsEscape(text[i]))
            continue;
        m_json += text.substr(written, i - written);
        escape(text[i]);
        written = i + 1;
    }
    m_json += text.substr(written);
    m_json += '"';
}

void JsonWriter::value(double number) {
    separate();
    if (!std::isfinite(number))
        fail("not a finite number");
    else if (number == 0 && std::signbit(number))
        m_json += "-0.0"; // "-0" reads back as the integer, which has no sign
    else
        appendNumber(m_json, number);
}

void JsonWriter::value(bool flag) {
    separate();
    m_json += flag ? "true" : "false";
}

void JsonWriter::null() {
    separate();
    m_json += "null";
}

void JsonWriter::integer(std::int64_t number) {
    separate();
    appendNumber(m_json, number);
}

void JsonWriter::integer(std::uint64_t number) {
    separate();
    appendNumber(m_json, number);
}

Result<std::string> JsonWriter::finish() {
    m_levels.clear();
    std::string json = std::exchange(m_json, {});
    if (const auto failure = std::exchange(m_failure, std::nullopt))
        return std::unexpected(*failure);
    return json;
}

void JsonWriter::begin(char bracket, bool isArray) {
    separate();
    m_json += bracket;
    m_levels.push_back({.isArray = isArray});
}

void JsonWriter::end(char bracket) {
    m_levels.pop_back();
    m_json += bracket;
}

void JsonWriter::separate() {
    if (m_levels.empty() || !m_levels.back().isArray)
        return;
    if (m_levels.back().count++ > 0)
        m_json += ',';
}

void JsonWriter::escape(char c) {
    constexpr std::string_view digits = "0123456789abcdef";
    switch (c) {
    case '"':
        m_json += "\\\"";
        return;
    case '\\':
        m_json += "\\\\";
        return;
    case '\n':
        m_json += "\\n";
        return;
    case '\r':
        m_json += "\\r";
        return;
    case '\t':
        m_json += "\\t";
        return;
    default:
        m_json += "\\u00";
        m_json += digits[static_cast<unsigned char>(c) >> 4U];
        m_json += digits[static_cast<unsigned char>(c) & 0xFU];
    }
}

void JsonWriter::fail(std::string reason) {
    if (!m_failure)
        m_failure = EncodingError{path(), std::move(reason)};
}

std::string JsonWriter::path() const {
    std::string path;
    for (const Level& level : m_levels) {
        if (level.isArray)
            path += "[" + std::to_string(level.count - 1) + "]";
        else
            path += (path.empty() ? "" : ".") + std::string(level.key);
    }
    return path;
}

} // namespace vantel
