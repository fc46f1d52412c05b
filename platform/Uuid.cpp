#include "platform/Uuid.h"

#include "platform/FatalError.h"

#include <sys/random.h>

namespace vantel {

namespace {

constexpr std::string_view upperCaseDigits = "0123456789ABCDEF";
constexpr std::string_view pattern = "00000000-0000-0000-0000-000000000000";

std::optional<std::uint8_t> digitValue(char digit) {
    if (digit >= '0' && digit <= '9')
        return static_cast<std::uint8_t>(digit - '0');
    if (digit >= 'A' && digit <= 'F')
        return static_cast<std::uint8_t>(digit - 'A' + 10);
    if (digit >= 'a' && digit <= 'f')
        return static_cast<std::uint8_t>(digit - 'a' + 10);
    return std::nullopt;
}

} // namespace

std::string text(const Uuid& uuid) {
    std::string result;
    result.reserve(pattern.size());
    for (const std::uint8_t byte : uuid.bytes) {
        if (pattern[result.size()] == '-')
            result += '-';
        result += upperCaseDigits[byte >> 4U];
        result += upperCaseDigits[byte & 0xFU];
    }
    return result;
}

std::optional<Uuid> parseUuid(std::string_view text) {
    if (text.size() != pattern.size())
        return std::nullopt;
    Uuid uuid{};
    std::size_t digits = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (pattern[i] == '-') {
            if (text[i] != '-')
                return std::nullopt;
            continue;
        }
        const auto value = digitValue(text[i]);
        if (!value)
            return std::nullopt;
        std::uint8_t& byte = uuid.bytes[digits++ / 2];
        byte = static_cast<std::uint8_t>(byte << 4U | *value);
    }
    return uuid;
}

Uuid randomUuid() {
    Uuid uuid{};
    if (::getrandom(uuid.bytes.data(), uuid.bytes.size(), 0) != static_cast<ssize_t>(uuid.bytes.size()))
        fatalError("The system has no random numbers.");
    uuid.bytes[6] = static_cast<std::uint8_t>((uuid.bytes[6] & 0x0FU) | 0x40U);
    uuid.bytes[8] = static_cast<std::uint8_t>((uuid.bytes[8] & 0x3FU) | 0x80U);
    return uuid;
}

} // namespace vantel
