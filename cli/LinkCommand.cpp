#include "cli/Answer.h"
#include "cli/Commands.h"
#include "widgets/WidgetLinks.h"

namespace vantel::commands {

namespace {

std::optional<Url> fixedLink(std::string_view name) {
    if (name == "focus")
        return WidgetLinks::focus();
    if (name == "triage")
        return WidgetLinks::triage();
    if (name == "calendar")
        return WidgetLinks::calendar();
    if (name == "people")
        return WidgetLinks::people();
    return std::nullopt;
}

std::expected<Url, CommandFailure> builtLink(const Arguments& arguments) {
    if (arguments.linkName == "todo")
        return WidgetLinks::todo(arguments.linkValue);
    const auto meeting = parseUrl(arguments.linkValue);
    if (!meeting)
        return failed("link join", "\"" + arguments.linkValue + "\" is not an absolute URL");
    return WidgetLinks::join(*meeting);
}

} // namespace

CommandResult link(const Arguments& arguments, const Surroundings&) {
    const auto fixed = fixedLink(arguments.linkName);
    const auto url = fixed ? std::expected<Url, CommandFailure>(*fixed) : builtLink(arguments);
    if (!url)
        return std::unexpected(url.error());
    return answer(arguments.form, url->text + "\n", [&](JsonWriter& json) {
        json.beginObject();
        json.field("url", url->text);
        json.endObject();
    });
}

} // namespace vantel::commands
