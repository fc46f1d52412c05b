#include "tests/widgets/WidgetFixture.h"

#include <gtest/gtest.h>

namespace vantel::testing {

namespace {

struct Children {
    std::vector<Element> operator()(const Row& row) const { return row.children; }
    std::vector<Element> operator()(const Column& column) const { return column.children; }
    std::vector<Element> operator()(const Stack& stack) const { return stack.children; }
    std::vector<Element> operator()(const Capsule& capsule) const { return {*capsule.content}; }
    std::vector<Element> operator()(const Link& link) const { return {*link.label}; }
    std::vector<Element> operator()(const Button& button) const { return {*button.label}; }
    std::vector<Element> operator()(const auto&) const { return {}; }
};

} // namespace

std::vector<Element> flattened(const Element& element) {
    std::vector<Element> elements = {element};
    for (const Element& child : std::visit(Children{}, element.kind))
        for (const Element& inner : flattened(child))
            elements.push_back(inner);
    return elements;
}

std::vector<std::string> texts(const Element& element) {
    std::vector<std::string> found;
    for (const Element& each : flattened(element)) {
        if (const auto* text = std::get_if<Text>(&each.kind))
            found.push_back(text->text);
        if (std::holds_alternative<RelativeTime>(each.kind))
            found.emplace_back("countdown");
    }
    return found;
}

Text textNamed(const Element& element, const std::string& text) {
    for (const Text& found : all<Text>(element))
        if (found.text == text)
            return found;
    ADD_FAILURE() << "There is no text \"" << text << "\".";
    return {};
}

} // namespace vantel::testing
