#pragma once

#include <optional>
#include <string>
#include <vector>

namespace vantel::testing {

/// What the grammar of JSON (RFC 8259) says of some bytes in the place of a value. It leaves open how deep
/// values nest, how large a number may be, and whether a text may hold half a surrogate pair.
enum class Standing { valid, invalid, leftOpen };

/// What a reader of fields sees in a value.
enum class JsonValue { null, boolean, integer, number, beyondDoubles, text, emptyArray, array, object };

/// Some bytes in the place of a value. They hold no text that is an absolute URL or the name of a kind.
struct JsonCase {
    std::string name;
    std::string bytes;
    Standing standing;
    std::optional<JsonValue> value; ///< what we take it for; absent where we refuse the whole document
};

/// Every class of number, literal, text and structure, the near misses among them; some thousand cases.
const std::vector<JsonCase>& everyJsonCase();

std::vector<JsonCase> numberCases();
std::vector<JsonCase> literalCases();
std::vector<JsonCase> textCases();
std::vector<JsonCase> encodingCases();
std::vector<JsonCase> structureCases();
std::vector<JsonCase> nestingCases();

inline JsonCase valid(std::string bytes, JsonValue value) {
    return {bytes, bytes, Standing::valid, value};
}

inline JsonCase invalid(std::string bytes) {
    return {bytes, bytes, Standing::invalid, std::nullopt};
}

} // namespace vantel::testing
