#include "platform/Url.h"

#include <algorithm>

#include <arpa/inet.h>

namespace vantel {

namespace {

constexpr std::string_view unreserved = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~";
constexpr std::string_view inPath = "!$&'()*+,;=:@/";
constexpr std::string_view inQuery = "!$&'()*+,;=:@/?";
constexpr std::string_view inQueryItem = "!$'()*+,;:@/?";
constexpr std::string_view inUserInfo = "!$&'()*+,;=:";
constexpr std::string_view inHostName = "!$&'()*+,;=";

enum class Escapes { kept, encoded };

bool isLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isHexDigit(char c) {
    return isDigit(c) || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
}

bool isAllowed(char c, std::string_view also) {
    return unreserved.contains(c) || also.contains(c);
}

bool isBlankOrControl(char c) {
    return static_cast<unsigned char>(c) <= 0x20 || c == 0x7F;
}

void appendEncoded(std::string& result, char c) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    const auto byte = static_cast<unsigned char>(c);
    result += '%';
    result += digits[byte >> 4U];
    result += digits[byte & 0xFU];
}

std::string encoded(std::string_view text, std::string_view also, Escapes escapes) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isEscape = escapes == Escapes::kept && text[i] == '%' && i + 2 < text.size() &&
                              isHexDigit(text[i + 1]) && isHexDigit(text[i + 2]);
        if (isEscape || isAllowed(text[i], also))
            result += text[i];
        else
            appendEncoded(result, text[i]);
    }
    return result;
}

bool isScheme(std::string_view text) {
    const auto isSchemeCharacter = [](char c) {
        return isLetter(c) || isDigit(c) || c == '+' || c == '-' || c == '.';
    };
    return !text.empty() && isLetter(text.front()) && std::ranges::all_of(text, isSchemeCharacter);
}

bool isBracketedAddress(std::string_view host) {
    if (host.size() < 2 || !host.ends_with(']') || host.contains('\0'))
        return false;
    const std::string address(host.substr(1, host.size() - 2));
    in6_addr parsed{};
    return ::inet_pton(AF_INET6, address.c_str(), &parsed) == 1;
}

std::optional<std::string> normalizedHost(std::string_view host) {
    if (host.starts_with('['))
        return isBracketedAddress(host) ? std::optional(std::string(host)) : std::nullopt;
    if (std::ranges::any_of(host,
                            [](char c) { return isBlankOrControl(c) || c == '[' || c == ']' || c == ':'; }))
        return std::nullopt;
    return encoded(host, inHostName, Escapes::kept);
}

struct HostAndPort {
    std::string_view host;
    std::string_view port; // with its colon
};

HostAndPort splitPort(std::string_view text) {
    const std::size_t colon = text.rfind(':');
    if (colon == std::string_view::npos || text.substr(colon).contains(']'))
        return {text, {}};
    return {text.substr(0, colon), text.substr(colon)};
}

std::optional<std::string> normalizedAuthority(std::string_view authority) {
    std::string result;
    if (const std::size_t at = authority.rfind('@'); at != std::string_view::npos) {
        result = encoded(authority.substr(0, at), inUserInfo, Escapes::kept) + '@';
        authority.remove_prefix(at + 1);
    }
    const auto [host, port] = splitPort(authority);
    const auto normalized = normalizedHost(host);
    if (!normalized || !std::ranges::all_of(port.substr(port.empty() ? 0 : 1), isDigit))
        return std::nullopt;
    return result + *normalized + std::string(port);
}

/// Cuts the text at the first of `delimiters`; what follows keeps its delimiter.
std::string_view takeUntil(std::string_view& text, std::string_view delimiters) {
    const std::size_t end = std::min(text.find_first_of(delimiters), text.size());
    const std::string_view taken = text.substr(0, end);
    text.remove_prefix(end);
    return taken;
}

} // namespace

std::optional<Url> parseUrl(std::string_view text) {
    const std::size_t colon = text.find(':');
    if (colon == std::string_view::npos || !isScheme(text.substr(0, colon)))
        return std::nullopt;
    std::string result(text.substr(0, colon + 1));
    text.remove_prefix(colon + 1);
    if (text.starts_with("//")) {
        text.remove_prefix(2);
        const auto authority = normalizedAuthority(takeUntil(text, "/?#"));
        if (!authority)
            return std::nullopt;
        result += "//" + *authority;
    }
    result += encoded(takeUntil(text, "?#"), inPath, Escapes::kept);
    if (text.starts_with('?')) {
        text.remove_prefix(1);
        result += '?' + encoded(takeUntil(text, "#"), inQuery, Escapes::kept);
    }
    if (text.starts_with('#'))
        result += '#' + encoded(text.substr(1), inQuery, Escapes::kept);
    return Url{std::move(result)};
}

std::optional<Url> makeUrl(std::string_view scheme, std::string_view host, std::string_view queryName,
                           std::string_view queryValue) {
    const auto normalized = normalizedHost(host);
    if (!isScheme(scheme) || !normalized)
        return std::nullopt;
    const std::string query = encoded(queryName, inQueryItem, Escapes::encoded) + '=' +
                              encoded(queryValue, inQueryItem, Escapes::encoded);
    return Url{std::string(scheme) + "://" + *normalized + '?' + query};
}

} // namespace vantel
