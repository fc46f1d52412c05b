#include "hosting/card/BoxMaker.h"

#include "hosting/card/BarBox.h"
#include "hosting/card/CapsuleBox.h"
#include "hosting/card/ColumnBox.h"
#include "hosting/card/FramedBox.h"
#include "hosting/card/Lines.h"
#include "hosting/card/PaddedBox.h"
#include "hosting/card/RectangleBox.h"
#include "hosting/card/RowBox.h"
#include "hosting/card/RuleBox.h"
#include "hosting/card/SpacerBox.h"
#include "hosting/card/StackBox.h"
#include "hosting/card/Symbols.h"
#include "hosting/card/TextBox.h"

#include <algorithm>

namespace vantel::card {

namespace {

constexpr double widestBar = 4;
constexpr double outlineOpacity = 0.4;

/// The letters of a terminal never shrink. Text that may shrink to a width has, instead, room for as many
/// letters as would then stand in it.
Frame unshrunk(const Element& element) {
    Frame frame = element.frame;
    if (const auto* text = std::get_if<Text>(&element.kind); text != nullptr && frame.width)
        *frame.width /= std::clamp(text->style.minimumScaleFactor, 0.1, 1.0);
    return frame;
}

/// Makes a box for an element, one function per kind. Lines of text stand as the nearest column aligns them.
class BoxMaker {
public:
    BoxMaker(const BoxContext& context, HorizontalAlignment lines)
        : m_context(context)
        , m_lines(lines) {}

    BoxPointer make(const Element& element) const {
        BoxPointer box = std::visit(*this, element.kind);
        if (element.padding != Padding{})
            box = std::make_unique<PaddedBox>(std::move(box), element.padding);
        if (element.frame != Frame{})
            box = std::make_unique<FramedBox>(std::move(box), unshrunk(element));
        return box;
    }

    BoxPointer operator()(const Text& text) const { return written(text.text, text.style); }

    BoxPointer operator()(const RelativeTime& time) const {
        return written(m_context.formats.timeLeft(time.date - m_context.now), time.style);
    }

    BoxPointer operator()(const Symbol& symbol) const {
        return std::make_unique<TextBox>(symbolGlyph(symbol.name),
                                         TextBox::Style{.pen = {resolved(symbol.color)}});
    }

    BoxPointer operator()(const Row& row) const {
        return std::make_unique<RowBox>(all(row.children), row.alignment, row.spacing);
    }

    BoxPointer operator()(const Column& column) const {
        return std::make_unique<ColumnBox>(BoxMaker(m_context, column.alignment).all(column.children),
                                           column.alignment, column.spacing);
    }

    BoxPointer operator()(const Stack& stack) const {
        return std::make_unique<StackBox>(all(stack.children), stack.alignment);
    }

    BoxPointer operator()(const Spacer& spacer) const { return std::make_unique<SpacerBox>(spacer); }

    BoxPointer operator()(const Rule& rule) const {
        return std::make_unique<RuleBox>(rule.axis, Pen{resolved(rule.color)});
    }

    BoxPointer operator()(const RoundedRectangle& shape) const {
        if (shape.width <= widestBar)
            return std::make_unique<BarBox>(Pen{resolved(shape.color)});
        const Size size{columnsFor(shape.width), rowsFor(shape.height)};
        return std::make_unique<RectangleBox>(size, resolved(shape.color), m_context.colors);
    }

    /// The ends of a capsule are the room at its sides.
    BoxPointer operator()(const Capsule& capsule) const {
        Element content = *capsule.content;
        content.padding = {};
        return std::make_unique<CapsuleBox>(make(content), resolved(capsule.color),
                                            resolved(PrimaryColor{outlineOpacity}), m_context.colors);
    }

    BoxPointer operator()(const Link& link) const { return make(*link.label); }
    BoxPointer operator()(const Button& button) const { return make(*button.label); }

private:
    Boxes all(const std::vector<Element>& elements) const {
        Boxes boxes;
        for (const Element& element : elements)
            boxes.push_back(make(element));
        return boxes;
    }

    BoxPointer written(std::string_view text, const TextStyle& style) const {
        const bool isBold = style.font.weight >= FontWeight::semibold;
        return std::make_unique<TextBox>(cardText(text),
                                         TextBox::Style{.pen = {resolved(style.color), isBold},
                                                        .lineLimit = style.lineLimit,
                                                        .alignment = m_lines});
    }

    ResolvedColor resolved(const Color& color) const {
        return resolve(color, m_context.appearance, m_context.primary);
    }

    const BoxContext& m_context;
    HorizontalAlignment m_lines;
};

} // namespace

BoxPointer makeBox(const Element& element, const BoxContext& context) {
    return BoxMaker(context, HorizontalAlignment::leading).make(element);
}

} // namespace vantel::card
