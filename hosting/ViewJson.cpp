#include "hosting/ViewJson.h"

#include "platform/JsonWriter.h"

#include <array>

namespace vantel {

namespace {

std::string_view name(FontWeight weight) {
    constexpr std::array<std::string_view, 4> names = {"regular", "medium", "semibold", "bold"};
    return names.at(static_cast<std::size_t>(weight));
}

std::string_view name(HorizontalAlignment alignment) {
    constexpr std::array<std::string_view, 3> names = {"leading", "center", "trailing"};
    return names.at(static_cast<std::size_t>(alignment));
}

std::string_view name(VerticalAlignment alignment) {
    constexpr std::array<std::string_view, 4> names = {"top", "center", "bottom", "firstTextBaseline"};
    return names.at(static_cast<std::size_t>(alignment));
}

std::string_view name(StackAlignment alignment) {
    constexpr std::array<std::string_view, 3> names = {"center", "topLeading", "leading"};
    return names.at(static_cast<std::size_t>(alignment));
}

/// Writes an element, one function per kind; the keys of a kind stand in the same object as those of the
/// frame.
class ElementWriter {
public:
    explicit ElementWriter(JsonWriter& json)
        : m_json(json) {}

    void write(const Element& element) {
        m_json.beginObject();
        std::visit(*this, element.kind);
        padding(element.padding);
        frame(element.frame);
        if (!element.accessibilityLabel.empty())
            m_json.field("accessibilityLabel", element.accessibilityLabel);
        m_json.endObject();
    }

    void operator()(const Text& text) {
        type("text");
        m_json.field("text", text.text);
        style(text.style);
    }

    void operator()(const RelativeTime& time) {
        type("relativeTime");
        m_json.field("date", time.date);
        style(time.style);
    }

    void operator()(const Symbol& symbol) {
        type("symbol");
        m_json.field("name", symbol.name);
        m_json.field("size", symbol.size);
        color("color", symbol.color);
        if (symbol.rendering == SymbolRendering::hierarchical)
            m_json.field("rendering", "hierarchical");
    }

    void operator()(const Row& row) {
        type("row");
        if (row.alignment != VerticalAlignment::center)
            m_json.field("alignment", name(row.alignment));
        m_json.field("spacing", row.spacing);
        children(row.children);
    }

    void operator()(const Column& column) {
        type("column");
        if (column.alignment != HorizontalAlignment::center)
            m_json.field("alignment", name(column.alignment));
        m_json.field("spacing", column.spacing);
        children(column.children);
    }

    void operator()(const Stack& stack) {
        type("stack");
        if (stack.alignment != StackAlignment::center)
            m_json.field("alignment", name(stack.alignment));
        children(stack.children);
    }

    void operator()(const Spacer& spacer) {
        type("spacer");
        m_json.field("minLength", spacer.minLength);
    }

    void operator()(const Rule& rule) {
        type("rule");
        m_json.field("axis", rule.axis == Axis::horizontal ? "horizontal" : "vertical");
        m_json.field("thickness", rule.thickness);
        color("color", rule.color);
    }

    void operator()(const RoundedRectangle& rectangle) {
        type("roundedRectangle");
        m_json.field("width", rectangle.width);
        m_json.field("height", rectangle.height);
        nonZero("cornerRadius", rectangle.cornerRadius);
        color("color", rectangle.color);
        nonZero("rotation", rectangle.rotation);
    }

    void operator()(const Capsule& capsule) {
        type("capsule");
        color("color", capsule.color);
        inner("content", *capsule.content);
    }

    void operator()(const Link& link) {
        type("link");
        m_json.field("url", link.url.text);
        inner("label", *link.label);
    }

    void operator()(const Button& button) {
        type("button");
        m_json.key("intent");
        m_json.beginObject();
        m_json.field("name", button.intent.name);
        for (const auto& [parameter, value] : button.intent.parameters)
            m_json.field(parameter, value);
        m_json.endObject();
        inner("label", *button.label);
    }

private:
    void type(std::string_view typeName) { m_json.field("type", typeName); }

    void inner(std::string_view key, const Element& element) {
        m_json.key(key);
        write(element);
    }

    void children(const std::vector<Element>& elements) {
        m_json.key("children");
        m_json.beginArray();
        for (const Element& element : elements)
            write(element);
        m_json.endArray();
    }

    void style(const TextStyle& style) {
        m_json.key("font");
        m_json.beginObject();
        m_json.field("size", style.font.size);
        if (style.font.weight != FontWeight::regular)
            m_json.field("weight", name(style.font.weight));
        if (style.font.design == FontDesign::monospaced)
            m_json.field("design", "monospaced");
        m_json.endObject();
        nonZero("tracking", style.tracking);
        nonZero("kerning", style.kerning);
        color("color", style.color);
        m_json.field("lineLimit", style.lineLimit);
        if (style.minimumScaleFactor != 1)
            m_json.field("minimumScaleFactor", style.minimumScaleFactor);
        if (style.invalidatable)
            m_json.field("invalidatable", true);
    }

    void color(std::string_view key, const Color& value) {
        if (value == Color(PrimaryColor{}))
            return;
        m_json.key(key);
        m_json.beginObject();
        if (const auto* primary = std::get_if<PrimaryColor>(&value)) {
            m_json.field("primary", primary->opacity);
        } else {
            const auto& token = std::get<TokenColor>(value);
            m_json.field("token", token.name);
            if (token.opacity != 1)
                m_json.field("opacity", token.opacity);
        }
        m_json.endObject();
    }

    void padding(const Padding& padding) {
        if (padding == Padding{})
            return;
        m_json.key("padding");
        if (padding == Padding::all(padding.top)) {
            m_json.value(padding.top);
            return;
        }
        m_json.beginObject();
        pair("vertical", "top", "bottom", padding.top, padding.bottom);
        pair("horizontal", "leading", "trailing", padding.leading, padding.trailing);
        m_json.endObject();
    }

    void pair(std::string_view both, std::string_view first, std::string_view second, double a, double b) {
        if (a == b) {
            nonZero(both, a);
            return;
        }
        nonZero(first, a);
        nonZero(second, b);
    }

    void frame(const Frame& frame) {
        if (frame == Frame{})
            return;
        m_json.key("frame");
        m_json.beginObject();
        m_json.field("width", frame.width);
        m_json.field("height", frame.height);
        m_json.field("minWidth", frame.minWidth);
        if (frame.alignment != StackAlignment::center)
            m_json.field("alignment", name(frame.alignment));
        if (frame.fill == FrameFill::both)
            m_json.field("fill", true);
        m_json.endObject();
    }

    void nonZero(std::string_view key, double value) {
        if (value != 0)
            m_json.field(key, value);
    }

    JsonWriter& m_json;
};

} // namespace

Result<std::string> viewJson(const WidgetView& view) {
    JsonWriter json;
    json.beginObject();
    json.field("kind", view.kind);
    json.field("family", name(view.family));
    json.field("date", view.date);
    if (view.content.widgetURL)
        json.field("widgetURL", view.content.widgetURL->text);
    json.field("background", view.content.background.name);
    json.key("content");
    ElementWriter(json).write(view.content.content);
    json.endObject();
    return json.finish();
}

} // namespace vantel
