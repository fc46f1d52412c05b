#include "host/scene/WrapperBoxes.h"

#include "host/scene/Placer.h"

#include <algorithm>

namespace vantel::scene {

namespace {

std::optional<double> lessened(std::optional<double> length, double by) {
    return length ? std::optional(std::max(0.0, *length - by)) : std::nullopt;
}

/// Where content of a size stands in a rectangle.
QRectF aligned(const QSizeF& size, const QRectF& rectangle, StackAlignment alignment) {
    const double widthLeft = rectangle.width() - size.width();
    const double heightLeft = rectangle.height() - size.height();
    const double x = alignment == StackAlignment::center ? widthLeft / 2 : 0;
    const double y = alignment == StackAlignment::topLeading ? 0 : heightLeft / 2;
    return {rectangle.topLeft() + QPointF(x, y), size};
}

} // namespace

QSizeF StackBox::measured(const Proposal& proposal) const {
    QSizeF size(0, 0);
    for (const BoxPointer& box : m_boxes)
        size = size.expandedTo(box->size(proposal));
    return size;
}

void StackBox::place(const QRectF& rectangle, Placer& placer) const {
    for (const BoxPointer& box : m_boxes)
        box->place(aligned(box->size({rectangle.width(), rectangle.height()}), rectangle, m_alignment),
                   placer);
}

QSizeF PaddedBox::inner(const QSizeF& size) const {
    return {std::max(0.0, size.width() - m_padding.leading - m_padding.trailing),
            std::max(0.0, size.height() - m_padding.top - m_padding.bottom)};
}

QSizeF PaddedBox::measured(const Proposal& proposal) const {
    const double horizontal = m_padding.leading + m_padding.trailing;
    const double vertical = m_padding.top + m_padding.bottom;
    const QSizeF size =
        content().size({lessened(proposal.width, horizontal), lessened(proposal.height, vertical)});
    return size + QSizeF(horizontal, vertical);
}

double PaddedBox::firstBaseline(const QSizeF& size) const {
    return m_padding.top + content().firstBaseline(inner(size));
}

void PaddedBox::place(const QRectF& rectangle, Placer& placer) const {
    const QPointF corner = rectangle.topLeft() + QPointF(m_padding.leading, m_padding.top);
    content().place({corner, inner(rectangle.size())}, placer);
}

QSizeF FramedBox::measured(const Proposal& proposal) const {
    const auto width = m_frame.width ? m_frame.width : proposal.width;
    const auto height = m_frame.height ? m_frame.height : proposal.height;
    QSizeF size = content().size({width, height});
    if (m_frame.width || (m_frame.fill == FrameFill::both && width))
        size.setWidth(*width);
    if (m_frame.height || (m_frame.fill == FrameFill::both && height))
        size.setHeight(*height);
    size.setWidth(std::max(size.width(), m_frame.minWidth.value_or(0)));
    return size;
}

QRectF FramedBox::inner(const QRectF& rectangle) const {
    const QSizeF size = content().size({rectangle.width(), rectangle.height()});
    return aligned(size, rectangle, m_frame.alignment);
}

double FramedBox::firstBaseline(const QSizeF& size) const {
    const QRectF inside = inner({{0, 0}, size});
    return inside.top() + content().firstBaseline(inside.size());
}

void FramedBox::place(const QRectF& rectangle, Placer& placer) const {
    content().place(inner(rectangle), placer);
}

void CapsuleBox::place(const QRectF& rectangle, Placer& placer) const {
    placer.add(rectangle,
               ShapePiece{.color = m_color, .cornerRadius = rectangle.height() / 2, .isCapsule = true});
    content().place(rectangle, placer);
}

void SpeakingBox::place(const QRectF& rectangle, Placer& placer) const {
    if (m_action)
        placer.addTarget(rectangle, *m_action, m_label);
    else
        placer.addSpoken(rectangle, m_label);
    placer.silence();
    content().place(rectangle, placer);
    placer.unsilence();
}

} // namespace vantel::scene
