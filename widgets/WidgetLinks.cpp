#include "widgets/WidgetLinks.h"

#include "core/WidgetShared.h"
#include "platform/FatalError.h"

namespace vantel::WidgetLinks {

namespace {

Url fixedLink(const std::string& text) {
    const auto url = parseUrl(text);
    if (!url)
        fatalError("The link " + text + " is malformed.");
    return *url;
}

Url builtLink(std::string_view host, std::string_view name, std::string_view value) {
    return makeUrl(WidgetShared::urlScheme, host, name, value).value_or(focus());
}

} // namespace

const Url& focus() {
    static const Url link = fixedLink("vantel://focus");
    return link;
}

const Url& triage() {
    static const Url link = fixedLink("vantel://triage");
    return link;
}

const Url& calendar() {
    static const Url link = fixedLink("vantel://calendar");
    return link;
}

const Url& people() {
    static const Url link = fixedLink("vantel://people");
    return link;
}

Url todo(std::string_view id) {
    return builtLink("todo", "id", id);
}

Url join(const Url& meeting) {
    return builtLink("join", "url", meeting.text);
}

} // namespace vantel::WidgetLinks
