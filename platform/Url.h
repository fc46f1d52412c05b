#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vantel {

/// An absolute URL (RFC 3986), held as its text, which contains only characters that a URL may contain.
struct Url {
    std::string text;

    bool operator==(const Url&) const = default;
};

/// Reads an absolute URL. Links in the wild hold characters that no URL may (`|`, `{`, blanks, umlauts):
/// those are percent-encoded as UTF-8 rather than refused, and escapes that stand are kept.
/// Nothing without a scheme is a URL, nor is one with a blank or control character in its host, with brackets
/// in the host other than around an IPv6 address, or with a port that is not a number.
std::optional<Url> parseUrl(std::string_view text);

/// `scheme://host?name=value`, the value percent-encoded as one query item, so that `&`, `=` and `#` in it
/// stay its own. Nothing when the pieces make no valid URL.
std::optional<Url> makeUrl(std::string_view scheme, std::string_view host, std::string_view queryName,
                           std::string_view queryValue);

} // namespace vantel
