#include "hosting/Reading.h"

namespace vantel {

namespace {

std::vector<const Element*> pointers(const std::vector<Element>& elements) {
    std::vector<const Element*> result;
    result.reserve(elements.size());
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

void append(std::string& words, std::string_view word) {
    if (!words.empty() && !word.empty())
        words += ' ';
    words += word;
}

void appendReading(std::string& words, const Element& element, const Formats& formats, Instant now) {
    if (!element.accessibilityLabel.empty()) {
        append(words, element.accessibilityLabel);
        return;
    }
    if (const auto* text = std::get_if<Text>(&element.kind))
        append(words, text->text);
    if (const auto* time = std::get_if<RelativeTime>(&element.kind))
        append(words, formats.timeLeft(time->date - now));
    for (const Element* child : children(element))
        appendReading(words, *child, formats, now);
}

} // namespace

std::vector<const Element*> children(const Element& element) {
    return std::visit(Children{}, element.kind);
}

std::string readingText(const Element& element, const Formats& formats, Instant now) {
    std::string words;
    appendReading(words, element, formats, now);
    return words;
}

} // namespace vantel
