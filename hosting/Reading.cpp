#include "hosting/Reading.h"

namespace vantel {

namespace {

std::vector<const Element*> pointers(const std::vector<Element>& elements) {
    std::vector<const Element*> result;
    for (const Element& element : elements)
        result.push_back(&element);
    return result;
}

struct Children {
    using Elements = std::vector<const Element*>;

    Elements operator()(const Row& row) const { return pointers(row.children); }
    Elements operator()(const Column& column) const { return pointers(column.children); }
    Elements operator()(const Stack& stack) const { return pointers(stack.children); }
    Elements operator()(const Capsule& capsule) const { return {&*capsule.content}; }
    Elements operator()(const Link& link) const { return {&*link.label}; }
    Elements operator()(const Button& button) const { return {&*button.label}; }
    Elements operator()(const Text&) const { return {}; }
    Elements operator()(const RelativeTime&) const { return {}; }
    Elements operator()(const Symbol&) const { return {}; }
    Elements operator()(const Spacer&) const { return {}; }
    Elements operator()(const Rule&) const { return {}; }
    Elements operator()(const RoundedRectangle&) const { return {}; }
};

std::string ownText(const Element& element, const Formats& formats, Instant now) {
    if (!element.accessibilityLabel.empty())
        return element.accessibilityLabel;
    if (const auto* text = std::get_if<Text>(&element.kind))
        return text->text;
    if (const auto* time = std::get_if<RelativeTime>(&element.kind))
        return formats.timeLeft(time->date - now);
    return {};
}

} // namespace

std::vector<const Element*> children(const Element& element) {
    return std::visit(Children{}, element.kind);
}

std::string readingText(const Element& element, const Formats& formats, Instant now) {
    std::string result = ownText(element, formats, now);
    if (!result.empty())
        return result;
    for (const Element* child : children(element)) {
        const std::string text = readingText(*child, formats, now);
        result += result.empty() || text.empty() ? text : " " + text;
    }
    return result;
}

} // namespace vantel
