#include "host/scene/Scene.h"

#include "host/scene/BoxMaker.h"
#include "host/scene/Placer.h"

#include <algorithm>
#include <utility>

namespace vantel::scene {

namespace {

enum class RowEnd { none, leading, trailing, both };

void narrow(Frame& frame, double by) {
    if (frame.minWidth)
        frame.minWidth = std::max(0.0, *frame.minWidth - by);
}

/// What a row's child asks for at the edges of the card.
void dropOuterPadding(Element& child, RowEnd end) {
    Padding& padding = child.padding;
    padding.top = padding.bottom = 0;
    if (end == RowEnd::leading || end == RowEnd::both)
        narrow(child.frame, std::exchange(padding.leading, 0));
    if (end == RowEnd::trailing || end == RowEnd::both)
        narrow(child.frame, std::exchange(padding.trailing, 0));
}

RowEnd rowEnd(std::size_t index, std::size_t count) {
    if (count == 1)
        return RowEnd::both;
    if (index == 0)
        return RowEnd::leading;
    return index + 1 == count ? RowEnd::trailing : RowEnd::none;
}

/// The room that a view asks for at the edges of its card is part of the margins, not added to them, so that
/// all cards keep one margin.
Element withoutOuterPadding(Element element) {
    element.padding = {};
    if (auto* row = std::get_if<Row>(&element.kind))
        for (std::size_t i = 0; i < row->children.size(); ++i)
            dropOuterPadding(row->children[i], rowEnd(i, row->children.size()));
    return element;
}

} // namespace

Scene laidOut(const WidgetView& view, const SceneContext& context) {
    ShapedTexts texts;
    return laidOut(view, context, texts);
}

Scene laidOut(const WidgetView& view, const SceneContext& context, ShapedTexts& texts) {
    Scene scene;
    scene.size = cardSize(view.family, 1);
    scene.background = view.content.background;
    const Element content = withoutOuterPadding(view.content.content);
    const BoxPointer box = makeBox(content, {context, texts, scene.countdowns});
    const QRectF room =
        QRectF({0, 0}, scene.size).adjusted(contentMargin, contentMargin, -contentMargin, -contentMargin);
    const QSizeF size = box->size({room.width(), room.height()});
    const QPointF corner = room.center() - QPointF(size.width(), size.height()) / 2;
    Placer placer(scene, context.direction);
    box->place({corner, size}, placer);
    texts.endLayout();
    return scene;
}

} // namespace vantel::scene
