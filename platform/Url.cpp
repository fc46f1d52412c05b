#include "platform/Url.h"

#include <algorithm>
#include <array>

#include <arpa/inet.h>

namespace vantel {

namespace {

/// Some ASCII characters, looked up in one step.
class CharacterSet {
public:
    constexpr explicit CharacterSet(std::string_view characters) { add(characters); }
    constexpr CharacterSet(const CharacterSet& base, std::string_view characters)
        : CharacterSet(base) {
        add(characters);
    }

    bool contains(char c) const { return m_contains[static_cast<unsigned char>(c)]; }

private:
    constexpr void add(std::string_view characters) {
        for (const char c : characters)
            m_contains.at(static_cast<unsigned char>(c)) = true;
    }

    std::array<bool, 256> m_contains = {};
};

constexpr CharacterSet unreserved("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~");
constexpr CharacterSet inPath(unreserved, "!$&'()*+,;=:@/");
constexpr CharacterSet inQuery(unreserved, "!$&'()*+,;=:@/?");
constexpr CharacterSet inQueryItem(unreserved, "!$'()*+,;:@/?");
constexpr CharacterSet inUserInfo(unreserved, "!$&'()*+,;=:");
constexpr CharacterSet inHostName(unreserved, "!$&'()*+,;=");
constexpr CharacterSet afterAuthority("/?#");
constexpr CharacterSet afterPath("?#");
constexpr CharacterSet afterQuery("#");

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

bool isBlankOrControl(char c) {
    return static_cast<unsigned char>(c) <= 0x20 || c == 0x7F;
}

void appendEscape(std::string& url, char c) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    const auto byte = static_cast<unsigned char>(c);
    url += '%';
    url += digits[byte >> 4U];
    url += digits[byte & 0xFU];
}

bool startsWithEscape(std::string_view text) {
    return text.size() > 2 && text[0] == '%' && isHexDigit(text[1]) && isHexDigit(text[2]);
}

/// Puts a text at the end of a URL, and an escape in the place of each character that may not stand there.
void append(std::string& url, std::string_view text, const CharacterSet& allowed, Escapes escapes) {
    while (true) {
        const auto next = std::ranges::find_if(text, [&](char c) { return !allowed.contains(c); });
        url.append(text.begin(), next);
        if (next == text.end())
            return;
        text = {next, text.end()};
        if (escapes == Escapes::kept && startsWithEscape(text))
            url += text.front();
        else
            appendEscape(url, text.front());
        text.remove_prefix(1);
    }
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

bool isHost(std::string_view text) {
    if (text.starts_with('['))
        return isBracketedAddress(text);
    return std::ranges::none_of(
        text, [](char c) { return isBlankOrControl(c) || c == '[' || c == ']' || c == ':'; });
}

void appendHost(std::string& url, std::string_view host) {
    if (host.starts_with('['))
        url += host;
    else
        append(url, host, inHostName, Escapes::kept);
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

/// Whether the text is an authority; if so it stands at the end of the URL.
bool appendAuthority(std::string& url, std::string_view authority) {
    if (const std::size_t at = authority.rfind('@'); at != std::string_view::npos) {
        append(url, authority.substr(0, at), inUserInfo, Escapes::kept);
        url += '@';
        authority.remove_prefix(at + 1);
    }
    const auto [host, port] = splitPort(authority);
    if (!isHost(host) || !std::ranges::all_of(port.substr(port.empty() ? 0 : 1), isDigit))
        return false;
    appendHost(url, host);
    url += port;
    return true;
}

/// Cuts the text at the first of `delimiters`; what follows keeps its delimiter.
std::string_view takeUntil(std::string_view& text, const CharacterSet& delimiters) {
    const auto end = std::ranges::find_if(text, [&](char c) { return delimiters.contains(c); });
    const std::string_view taken(text.begin(), end);
    text.remove_prefix(taken.size());
    return taken;
}

} // namespace

std::optional<Url> parseUrl(std::string_view text) {
    const std::size_t colon = text.find(':');
    if (colon == std::string_view::npos || !isScheme(text.substr(0, colon)))
        return std::nullopt;
    std::string url;
    url.reserve(text.size());
    url += text.substr(0, colon + 1);
    text.remove_prefix(colon + 1);
    if (text.starts_with("//")) {
        text.remove_prefix(2);
        url += "//";
        if (!appendAuthority(url, takeUntil(text, afterAuthority)))
            return std::nullopt;
    }
    append(url, takeUntil(text, afterPath), inPath, Escapes::kept);
    if (text.starts_with('?')) {
        text.remove_prefix(1);
        url += '?';
        append(url, takeUntil(text, afterQuery), inQuery, Escapes::kept);
    }
    if (text.starts_with('#')) {
        url += '#';
        append(url, text.substr(1), inQuery, Escapes::kept);
    }
    return Url{std::move(url)};
}

std::optional<Url> makeUrl(std::string_view scheme, std::string_view host, std::string_view queryName,
                           std::string_view queryValue) {
    if (!isScheme(scheme) || !isHost(host))
        return std::nullopt;
    std::string url(scheme);
    url += "://";
    appendHost(url, host);
    url += '?';
    append(url, queryName, inQueryItem, Escapes::encoded);
    url += '=';
    append(url, queryValue, inQueryItem, Escapes::encoded);
    return Url{std::move(url)};
}

} // namespace vantel
