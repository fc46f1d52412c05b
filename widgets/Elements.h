#pragma once

#include "hosting/Element.h"

#include <utility>

/// Short ways to build the elements of a view.
namespace vantel {

inline Element padded(Element element, Padding padding) {
    element.padding = padding;
    return element;
}

inline Element framed(Element element, Frame frame) {
    element.frame = frame;
    return element;
}

inline Element labelled(Element element, std::string accessibilityLabel) {
    element.accessibilityLabel = std::move(accessibilityLabel);
    return element;
}

/// A column that fills its card, its lines starting at the leading edge.
inline Element leadingCard(std::vector<Element> children) {
    return framed(
        {Column{.children = std::move(children), .alignment = HorizontalAlignment::leading, .spacing = 0}},
        {.alignment = StackAlignment::topLeading, .fill = FrameFill::both});
}

/// A column in the middle of its card.
inline Element centeredCard(std::vector<Element> children) {
    return framed({Column{.children = std::move(children), .spacing = 0}}, {.fill = FrameFill::both});
}

/// The colour of captions.
inline constexpr PrimaryColor captionColor{0.42};

} // namespace vantel
