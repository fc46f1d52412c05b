#pragma once

#include "platform/Error.h"
#include "platform/Instant.h"
#include "platform/JsonBuffer.h"

#include <concepts>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vantel {

/// Writes one compact JSON value. Numbers are the shortest text that reads back the same (`788918400`,
/// `0.94`, `1e+21`), keys stand in the order they are written, and nothing but what JSON demands is escaped.
///
/// What has no JSON form (a number that is not finite, a text that is not UTF-8) makes `finish` fail, with
/// the path of the first such value.
class JsonWriter {
public:
    /// Room for a document of about this length, so that a long one is not copied again and again as it
    /// grows.
    void reserve(std::size_t length) { m_json.reserve(length); }

    void beginObject();
    void endObject();
    void beginArray();
    void endArray();

    /// The key of the next value: a name without characters that JSON escapes. Must outlive the value, an
    /// object's or an array's last member included.
    void key(std::string_view name);

    void value(std::string_view text);
    void value(const char* text) { value(std::string_view(text)); }
    void value(const std::string& text) { value(std::string_view(text)); }
    void value(std::signed_integral auto number) { integer(std::int64_t{number}); }
    void value(std::unsigned_integral auto number) { integer(std::uint64_t{number}); }
    void value(double number);
    void value(bool flag);
    void value(Instant instant) { value(secondsSinceReference(instant)); }
    void null();

    template <typename Value>
    [[gnu::always_inline]] void field(std::string_view name, const Value& fieldValue) {
        key(name);
        value(fieldValue);
    }

    /// Leaves the key out when there is no value.
    template <typename Value>
    [[gnu::always_inline]] void field(std::string_view name, const std::optional<Value>& fieldValue) {
        if (fieldValue)
            field(name, *fieldValue);
    }

    /// The document. The writer is empty afterwards.
    Result<std::string> finish();

private:
    struct Level {
        bool isArray;
        std::size_t count = 0;
        std::string_view key = {};
    };

    void integer(std::int64_t number);
    void integer(std::uint64_t number);
    void begin(char bracket, bool isArray);
    void end(char bracket);
    void separate();
    void escaped(std::string_view text);
    void escape(char c);
    void fail(std::string reason);
    std::string path() const;

    JsonBuffer m_json;
    std::vector<Level> m_levels;
    std::optional<EncodingError> m_failure;
};

// Inlined, so that the compiler knows each key's length where it copies it.
[[gnu::always_inline]] inline void JsonWriter::key(std::string_view name) {
    Level& level = m_levels.back();
    level.key = name;
    char* out = m_json.room(name.size() + 4);
    if (level.count++ > 0)
        *out++ = ',';
    *out++ = '"';
    out += name.copy(out, name.size());
    *out++ = '"';
    *out++ = ':';
    m_json.end(out);
}

} // namespace vantel
