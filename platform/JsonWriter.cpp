#include "platform/JsonWriter.h"

#include "platform/ShortestNumber.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>

#include <simdjson.h>

namespace vantel {

namespace {

template <typename Integer>
void appendInteger(JsonBuffer& json, Integer number) {
    json.append(longestNumber,
                [&](char* out) { return std::to_chars(out, out + longestNumber, number).ptr; });
}

bool needsEscape(char c) {
    return static_cast<unsigned char>(c) < 0x20 || c == '"' || c == '\\';
}

/// Whether a text is ASCII of which nothing is escaped. Looks at every character rather than stopping at the
/// first hit, so that the compiler takes many at a time.
bool isPlain(std::string_view text) {
    unsigned char found = 0;
    for (const char c : text) {
        const auto byte = static_cast<signed char>(c); // negative beyond ASCII
        found |= byte < 0x20 || byte == '"' || byte == '\\' ? 1 : 0;
    }
    return found == 0;
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

void JsonWriter::value(std::string_view text) {
    separate();
    if (!isPlain(text))
        return escaped(text);
    m_json.append(text.size() + 2, [&](char* out) {
        *out++ = '"';
        out += text.copy(out, text.size());
        *out++ = '"';
        return out;
    });
}

void JsonWriter::value(double number) {
    separate();
    if (!std::isfinite(number))
        fail("not a finite number");
    else if (number == 0 && std::signbit(number))
        m_json.append("-0.0"); // "-0" reads back as the integer, which has no sign
    else
        m_json.append(longestNumber, [&](char* out) { return writeShortest(number, out); });
}

void JsonWriter::value(bool flag) {
    separate();
    m_json.append(flag ? "true" : "false");
}

void JsonWriter::null() {
    separate();
    m_json.append("null");
}

void JsonWriter::integer(std::int64_t number) {
    separate();
    appendInteger(m_json, number);
}

void JsonWriter::integer(std::uint64_t number) {
    separate();
    appendInteger(m_json, number);
}

Result<std::string> JsonWriter::finish() {
    m_levels.clear();
    std::string json = m_json.take();
    if (const auto failure = std::exchange(m_failure, std::nullopt))
        return std::unexpected(*failure);
    return json;
}

void JsonWriter::begin(char bracket, bool isArray) {
    separate();
    m_json.append(bracket);
    m_levels.push_back({.isArray = isArray});
}

void JsonWriter::end(char bracket) {
    m_levels.pop_back();
    m_json.append(bracket);
}

void JsonWriter::separate() {
    if (m_levels.empty() || !m_levels.back().isArray)
        return;
    if (m_levels.back().count++ > 0)
        m_json.append(',');
}

void JsonWriter::escaped(std::string_view text) {
    if (!simdjson::validate_utf8(text.data(), text.size()))
        fail("not valid UTF-8");
    m_json.append('"');
    while (true) {
        const auto next = std::ranges::find_if(text, needsEscape);
        m_json.append({text.begin(), next});
        if (next == text.end())
            break;
        escape(*next);
        text = {next + 1, text.end()};
    }
    m_json.append('"');
}

void JsonWriter::escape(char c) {
    constexpr std::string_view digits = "0123456789abcdef";
    switch (c) {
    case '"':
        m_json.append("\\\"");
        return;
    case '\\':
        m_json.append("\\\\");
        return;
    case '\n':
        m_json.append("\\n");
        return;
    case '\r':
        m_json.append("\\r");
        return;
    case '\t':
        m_json.append("\\t");
        return;
    default:
        m_json.append("\\u00");
        m_json.append(digits[static_cast<unsigned char>(c) >> 4U]);
        m_json.append(digits[static_cast<unsigned char>(c) & 0xFU]);
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
