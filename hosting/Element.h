#pragma once

#include "hosting/Boxed.h"
#include "hosting/Color.h"
#include "hosting/Intent.h"
#include "platform/Instant.h"
#include "platform/Url.h"

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace vantel {

struct Element;

enum class FontWeight { regular, medium, semibold, bold };
enum class FontDesign { standard, monospaced };
enum class HorizontalAlignment { leading, center, trailing };
enum class VerticalAlignment { top, center, bottom, firstTextBaseline };
enum class StackAlignment { center, topLeading, leading };
enum class Axis { horizontal, vertical };
enum class SymbolRendering { monochrome, hierarchical };

/// A size in points; a point is one logical pixel, and fractions count.
struct Font {
    double size;
    FontWeight weight = FontWeight::regular;
    FontDesign design = FontDesign::standard;

    bool operator==(const Font&) const = default;
};

struct TextStyle {
    Font font;
    double tracking = 0; ///< points between letters, kerning pairs kept
    double kerning = 0;  ///< points between letters, kerning pairs replaced
    Color color = PrimaryColor{};
    std::optional<int> lineLimit = std::nullopt;
    double minimumScaleFactor = 1; ///< how far the text may shrink, before it is elided, to fit its room
    bool invalidatable = false;    ///< pending while an intent of its widget runs

    bool operator==(const TextStyle&) const = default;
};

/// Plain text, never markup.
struct Text {
    std::string text;
    TextStyle style;

    bool operator==(const Text&) const = default;
};

/// The time left until `date`, which the host renders and keeps up to date.
struct RelativeTime {
    Instant date;
    TextStyle style;

    bool operator==(const RelativeTime&) const = default;
};

/// A pictogram by name ("checkmark", "circle", "moon", …). Without a size it has the host's usual one.
struct Symbol {
    std::string_view name;
    std::optional<double> size = std::nullopt;
    Color color = PrimaryColor{};
    SymbolRendering rendering = SymbolRendering::monochrome;

    bool operator==(const Symbol&) const = default;
};

/// Children side by side in reading order. Without a spacing the host's usual gap stands between them.
struct Row {
    std::vector<Element> children;
    VerticalAlignment alignment = VerticalAlignment::center;
    std::optional<double> spacing = std::nullopt;

    bool operator==(const Row&) const = default;
};

/// Children from top to bottom.
struct Column {
    std::vector<Element> children;
    HorizontalAlignment alignment = HorizontalAlignment::center;
    std::optional<double> spacing = std::nullopt;

    bool operator==(const Column&) const = default;
};

/// Children drawn over each other, the first at the bottom.
struct Stack {
    std::vector<Element> children;
    StackAlignment alignment = StackAlignment::center;

    bool operator==(const Stack&) const = default;
};

/// Room that takes what the others leave, along the row or column that holds it.
struct Spacer {
    std::optional<double> minLength = std::nullopt;

    bool operator==(const Spacer&) const = default;
};

/// A line across the whole available length.
struct Rule {
    Axis axis = Axis::horizontal;
    double thickness = 1;
    Color color = PrimaryColor{};

    bool operator==(const Rule&) const = default;
};

struct RoundedRectangle {
    double width;
    double height;
    double cornerRadius = 0;
    Color color = PrimaryColor{};
    double rotation = 0; ///< degrees, clockwise, about the centre; takes no room

    bool operator==(const RoundedRectangle&) const = default;
};

/// Content on a filled shape with round ends.
struct Capsule {
    Color color;
    Boxed<Element> content;

    bool operator==(const Capsule&) const = default;
};

/// Opens a link of this system when it is activated.
struct Link {
    Url url;
    Boxed<Element> label;

    bool operator==(const Link&) const = default;
};

/// Runs an intent when it is pressed.
struct Button {
    IntentCall intent;
    Boxed<Element> label;

    bool operator==(const Button&) const = default;
};

/// Points inside the element's edge.
struct Padding {
    double top = 0;
    double bottom = 0;
    double leading = 0;
    double trailing = 0;

    bool operator==(const Padding&) const = default;

    static Padding all(double points) { return {points, points, points, points}; }
    static Padding symmetric(double horizontal, double vertical) {
        return {vertical, vertical, horizontal, horizontal};
    }
};

enum class FrameFill { none, both };

/// A size that is imposed on the element, its padding included, and where in it the content stands.
struct Frame {
    std::optional<double> width = std::nullopt;
    std::optional<double> height = std::nullopt;
    std::optional<double> minWidth = std::nullopt;
    StackAlignment alignment = StackAlignment::center;
    FrameFill fill = FrameFill::none; ///< take all the room there is

    bool operator==(const Frame&) const = default;
};

/// One node of a view: what it is, and the room around it. Reading order is child order.
struct Element {
    std::variant<Text, RelativeTime, Symbol, Row, Column, Stack, Spacer, Rule, RoundedRectangle, Capsule,
                 Link, Button>
        kind;
    Padding padding = {};
    Frame frame = {};
    std::string accessibilityLabel = {};

    bool operator==(const Element&) const = default;
};

} // namespace vantel
