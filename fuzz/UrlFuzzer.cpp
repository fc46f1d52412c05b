#include "fuzz/Promise.h"
#include "platform/Url.h"
#include "widgets/WidgetLinks.h"

#include <algorithm>

namespace vantel {
namespace {

bool mayStandInAUrl(char c) {
    constexpr std::string_view marks = "-._~:/?#[]@!$&'()*+,;=%";
    const bool isLetterOrDigit = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
    return isLetterOrDigit || marks.contains(c);
}

int digitValue(char c) {
    return c <= '9' ? c - '0' : c - 'A' + 10;
}

/// What the receiver of a link makes of a query item.
std::string unescaped(std::string_view item) {
    std::string text;
    for (std::size_t i = 0; i < item.size(); ++i) {
        const bool isEscape = item[i] == '%' && i + 2 < item.size();
        text +=
            isEscape ? static_cast<char>(digitValue(item[i + 1]) * 16 + digitValue(item[i + 2])) : item[i];
        i += isEscape ? 2 : 0;
    }
    return text;
}

void judgeUrl(const Url& url) {
    promise(std::ranges::all_of(url.text, mayStandInAUrl), "a URL holds only what a URL may");
    promise(parseUrl(url.text) == url, "a URL is read as it stands");
}

void judgeLink(const Url& link, std::string_view beginning, std::string_view item) {
    judgeUrl(link);
    promise(link.text.starts_with(beginning), "a link leads to where it was made for");
    const std::string_view rest = std::string_view(link.text).substr(beginning.size());
    promise(rest.find_first_of("&=#") == std::string_view::npos, "an item cannot begin another one");
    promise(unescaped(rest) == item, "an item arrives as it was given");
}

} // namespace
} // namespace vantel

/// Any bytes are no URL, or a tamed one; and whatever they are, the links that the widgets make lead to the
/// companion, which gets them back as they were.
extern "C" int LLVMFuzzerTestOneInput(const char* data, std::size_t size) {
    using namespace vantel;
    judgeLink(WidgetLinks::todo({data, size}), "vantel://todo?id=", {data, size});
    if (const auto url = parseUrl({data, size})) {
        judgeUrl(*url);
        judgeLink(WidgetLinks::join(*url), "vantel://join?url=", url->text);
    }
    return 0;
}
