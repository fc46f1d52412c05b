#include "host/scene/BoxMaker.h"

#include "host/scene/DisplayText.h"
#include "host/scene/LeafBoxes.h"
#include "host/scene/LineBox.h"
#include "host/scene/OuterPadding.h"
#include "host/scene/TextBox.h"
#include "host/scene/WrapperBoxes.h"
#include "hosting/Reading.h"

namespace vantel::scene {

namespace {

constexpr double usualGap = 8;
constexpr double usualSymbolSize = 13;

/// Makes a box for an element, one function per kind. Lines of text stand as the nearest column aligns them.
class BoxMaker {
public:
    BoxMaker(const BoxContext& context, HorizontalAlignment lines)
        : m_context(context)
        , m_lines(lines) {}

    BoxPointer makeOutermost(const Element& content) const {
        const auto* row = std::get_if<Row>(&content.kind);
        BoxPointer box = row == nullptr ? std::visit(*this, content.kind) : outermostRow(*row);
        return framed(speaking(std::move(box), content), {{}, content.frame});
    }

    BoxPointer operator()(const Text& text) const { return written(text.text, text.style); }

    BoxPointer operator()(const RelativeTime& time) const {
        m_context.countdowns.push_back(time.date);
        return written(m_context.scene.formats.timeLeft(time.date - m_context.scene.now), time.style);
    }

    BoxPointer operator()(const Symbol& symbol) const {
        return std::make_unique<SymbolBox>(SymbolPiece{symbol.name, symbol.color, symbol.rendering},
                                           symbol.size.value_or(usualSymbolSize));
    }

    BoxPointer operator()(const Row& row) const {
        return std::make_unique<RowBox>(all(row.children), row.alignment, row.spacing.value_or(usualGap));
    }

    BoxPointer operator()(const Column& column) const {
        Boxes boxes = BoxMaker(m_context, column.alignment).all(column.children);
        return std::make_unique<ColumnBox>(std::move(boxes), column.alignment,
                                           column.spacing.value_or(usualGap));
    }

    BoxPointer operator()(const Stack& stack) const {
        return std::make_unique<StackBox>(all(stack.children), stack.alignment);
    }

    BoxPointer operator()(const Spacer& spacer) const { return std::make_unique<SpacerBox>(spacer); }
    BoxPointer operator()(const Rule& rule) const { return std::make_unique<RuleBox>(rule); }

    BoxPointer operator()(const RoundedRectangle& shape) const {
        return std::make_unique<RectangleBox>(shape);
    }

    BoxPointer operator()(const Capsule& capsule) const {
        return std::make_unique<CapsuleBox>(make(*capsule.content), capsule.color);
    }

    BoxPointer operator()(const Link& link) const { return make(*link.label); }
    BoxPointer operator()(const Button& button) const { return make(*button.label); }

private:
    BoxPointer make(const Element& element) const { return make(element, edges(element)); }

    BoxPointer make(const Element& element, const Edges& edges) const {
        return framed(speaking(std::visit(*this, element.kind), element), edges);
    }

    BoxPointer outermostRow(const Row& row) const {
        Boxes boxes;
        for (std::size_t i = 0; i < row.children.size(); ++i)
            boxes.push_back(
                make(row.children[i], edgesInOutermostRow(row.children[i], i, row.children.size())));
        return std::make_unique<RowBox>(std::move(boxes), row.alignment, row.spacing.value_or(usualGap));
    }

    static BoxPointer framed(BoxPointer box, const Edges& edges) {
        if (edges.padding != Padding{})
            box = std::make_unique<PaddedBox>(std::move(box), edges.padding);
        if (edges.frame != Frame{})
            box = std::make_unique<FramedBox>(std::move(box), edges.frame);
        return box;
    }

    Boxes all(const std::vector<Element>& elements) const {
        Boxes boxes;
        for (const Element& element : elements)
            boxes.push_back(make(element));
        return boxes;
    }

    BoxPointer written(std::string_view text, const TextStyle& style) const {
        return std::make_unique<TextBox>(
            m_context.texts.shaped(displayText(text), style, m_context.scene.look), m_lines);
    }

    BoxPointer speaking(BoxPointer box, const Element& element) const {
        SpeakingBox::Action action;
        if (const auto* link = std::get_if<Link>(&element.kind))
            action = link->url;
        if (const auto* button = std::get_if<Button>(&element.kind))
            action = button->intent;
        if (!action && element.accessibilityLabel.empty())
            return box;
        const std::string label = readingText(element, m_context.scene.formats, m_context.scene.now);
        return std::make_unique<SpeakingBox>(std::move(box), displayText(label), std::move(action));
    }

    const BoxContext& m_context;
    HorizontalAlignment m_lines;
};

} // namespace

BoxPointer makeOutermostBox(const Element& content, const BoxContext& context) {
    return BoxMaker(context, HorizontalAlignment::leading).makeOutermost(content);
}

} // namespace vantel::scene
