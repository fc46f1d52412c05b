#include "platform/JsonWriter.h"

#include "platform/ShortestNumber.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <utility>

#include <simdjson.h>

namespace vantel {

namespace {

template <typename Integer>
void appendInteger(JsonBuffer& json, Integer number) {
    char* const out = json.room(longestNumber);
    json.end(std::to_chars(out, out + longestNumber, number).ptr);
}

bool needsEscape(char c) {
    return static_cast<unsigned char>(c) < 0x20 || c == '"' || c == '\\';
}

/// Eight characters in one number, so that they are looked at together.
using Eight = std::uint64_t;

constexpr Eight eightTimes(unsigned char c) {
    return 0x0101010101010101U * Eight{c};
}

/// What was seen in a text; the highest bit of a byte tells.
struct Seen {
    Eight beyondASCII = 0;
    Eight escapes = 0;

    void look(Eight characters) {
        // A subtraction borrows from the next byte only where it found something.
        const Eight controls = characters - eightTimes(0x20);
        const Eight quotes = (characters ^ eightTimes('"')) - eightTimes(1);
        const Eight backslashes = (characters ^ eightTimes('\\')) - eightTimes(1);
        beyondASCII |= characters & eightTimes(0x80);
        escapes |= (controls | quotes | backslashes) & ~characters & eightTimes(0x80);
    }
};

/// Copies a text and tells what is in it.
Seen copy(std::string_view text, char* out) {
    Seen seen;
    const auto copyAt = [&](std::size_t at, std::size_t count) {
        Eight characters = eightTimes(' ');
        std::memcpy(&characters, text.data() + at, count);
        std::memcpy(out + at, &characters, count);
        seen.look(characters);
    };
    constexpr std::size_t step = sizeof(Eight);
    std::size_t at = 0;
    for (; at + step <= text.size(); at += step)
        copyAt(at, step);
    if (text.size() >= step)
        copyAt(text.size() - step,
               step); // Some characters twice, to no harm, instead of the rest one by one.
    else if (!text.empty())
        copyAt(0, text.size());
    return seen;
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
    char* out = m_json.room(text.size() + 2);
    *out++ = '"';
    const Seen seen = copy(text, out);
    if (seen.beyondASCII != 0 && !simdjson::validate_utf8(text.data(), text.size()))
        fail("not valid UTF-8");
    if (seen.escapes != 0)
        return escaped(text);
    out += text.size();
    *out++ = '"';
    m_json.end(out);
}

void JsonWriter::value(double number) {
    separate();
    if (!std::isfinite(number))
        fail("not a finite number");
    else if (number == 0 && std::signbit(number))
        m_json.append("-0.0"); // "-0" reads back as the integer, which has no sign
    else
        m_json.end(writeShortest(number, m_json.room(longestNumber)));
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
            path.append("[").append(std::to_string(level.count - 1)).append("]");
        else
            path.append(path.empty() ? "" : ".").append(level.key);
    }
    return path;
}

} // namespace vantel
