#pragma once

#include "hosting/ViewText.h"
#include "tests/fakes/FakeFormats.h"

#include <string>
#include <vector>

/// Short ways to build views and to look at the cards that they make.
namespace vantel::testing {

inline constexpr TokenColor cardColor{"windowBg", DynamicColor{0xF0F0F0, 0x202020}};

inline Element text(std::string value, std::optional<int> lineLimit = std::nullopt) {
    return {Text{std::move(value), {.font = {11}, .lineLimit = lineLimit}}};
}

inline Element colored(std::string value, Color color, FontWeight weight = FontWeight::regular) {
    return {Text{std::move(value), {.font = {11, weight}, .color = color}}};
}

inline Element row(std::vector<Element> children, VerticalAlignment alignment = VerticalAlignment::center) {
    return {Row{.children = std::move(children), .alignment = alignment}};
}

inline Element column(std::vector<Element> children,
                      HorizontalAlignment alignment = HorizontalAlignment::leading) {
    return {Column{.children = std::move(children), .alignment = alignment}};
}

inline Element spacer() {
    return {Spacer{}};
}

inline Element rule(Axis axis = Axis::horizontal) {
    return {Rule{.axis = axis}};
}

inline Element padded(Element element, Padding padding) {
    element.padding = padding;
    return element;
}

inline Element framed(Element element, Frame frame) {
    element.frame = frame;
    return element;
}

/// Fills the card from its top leading corner.
inline Element filling(Element element) {
    return framed(std::move(element), {.alignment = StackAlignment::topLeading, .fill = FrameFill::both});
}

inline Element link(std::string url, Element label) {
    return {Link{Url{std::move(url)}, std::move(label)}};
}

inline WidgetView view(Element content, WidgetFamily family = WidgetFamily::systemSmall) {
    return {.kind = "Test",
            .family = family,
            .date = instantFromReference(1000),
            .content = {content, cardColor}};
}

/// What is printed for a view, with the title "Test".
std::string printed(const WidgetView& view, TerminalColors colors = TerminalColors::none,
                    const Appearance& appearance = Appearance::aqua());

std::vector<std::string> lines(const std::string& text);

/// The lines from the upper to the lower edge of the card.
std::vector<std::string> cardLines(const std::string& printedView);

/// What stands inside the frame and its margins, without blanks at the ends and without empty lines at the
/// end.
std::vector<std::string> insideLines(const Element& content, WidgetFamily family = WidgetFamily::systemSmall);

} // namespace vantel::testing
