#include "hosting/card/Actions.h"

#include "hosting/Reading.h"
#include "hosting/card/Lines.h"
#include "platform/DisplayWidth.h"

#include <algorithm>
#include <vector>

namespace vantel::card {

namespace {

constexpr int widestLabel = 36;

struct Action {
    std::string_view verb;
    std::string label;
    std::string target;
};

std::string call(const IntentCall& intent) {
    std::string result = cardText(intent.name);
    for (const auto& [name, value] : intent.parameters)
        result += " " + cardText(value);
    return result;
}

/// Gathers what an element and those inside it can be made to do.
void gather(std::vector<Action>& actions, const Element& element, const Formats& formats, Instant now) {
    const auto label = [&] { return elided(cardText(readingText(element, formats, now)), widestLabel); };
    if (const auto* link = std::get_if<Link>(&element.kind))
        actions.push_back({"link ", label(), cardText(link->url.text)});
    if (const auto* button = std::get_if<Button>(&element.kind))
        actions.push_back({"press", label(), call(button->intent)});
    for (const Element* child : children(element))
        gather(actions, *child, formats, now);
}

std::string padded(const std::string& text, int width) {
    return text + std::string(static_cast<std::size_t>(std::max(0, width - displayWidth(text))), ' ');
}

} // namespace

std::string actionLines(const WidgetView& view, const Formats& formats) {
    std::vector<Action> actions;
    gather(actions, view.content.content, formats, view.date);
    int width = 0;
    for (const Action& action : actions)
        width = std::max(width, displayWidth(action.label));

    std::string lines;
    if (view.content.widgetURL)
        lines += "opens  " + cardText(view.content.widgetURL->text) + "\n";
    for (const Action& action : actions)
        lines += std::string(action.verb) + "  " + padded(action.label, width) + "  " + action.target + "\n";
    return lines;
}

} // namespace vantel::card
