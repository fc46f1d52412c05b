#include "host/scene/LineBox.h"

#include <algorithm>

namespace vantel::scene {

namespace {

double shareBefore(HorizontalAlignment alignment) {
    switch (alignment) {
    case HorizontalAlignment::leading:
        return 0;
    case HorizontalAlignment::center:
        return 0.5;
    case HorizontalAlignment::trailing:
        return 1;
    }
    return 0;
}

} // namespace

ColumnBox::ColumnBox(Boxes boxes, HorizontalAlignment alignment, double gap)
    : m_boxes(std::move(boxes))
    , m_alignment(alignment)
    , m_gap(gap) {}

LineRoom ColumnBox::room(std::optional<double> height, std::optional<double> width) const {
    return {Axis::vertical, height, width, m_gap};
}

QSizeF ColumnBox::measured(const Proposal& proposal) const {
    const std::vector<double> heights = lengths(m_boxes, room(proposal.height, proposal.width));
    double width = 0;
    for (std::size_t i = 0; i < m_boxes.size(); ++i)
        width = std::max(width, m_boxes[i]->size({proposal.width, heights[i]}).width());
    return {width, totalLength(heights, m_gap)};
}

double ColumnBox::firstBaseline(const QSizeF& size) const {
    if (m_boxes.empty())
        return size.height();
    return m_boxes.front()->firstBaseline(m_boxes.front()->size({size.width(), std::nullopt}));
}

void ColumnBox::place(const QRectF& rectangle, Placer& placer) const {
    const std::vector<double> heights = lengths(m_boxes, room(rectangle.height(), rectangle.width()));
    double y = rectangle.top();
    for (std::size_t i = 0; i < m_boxes.size(); ++i) {
        const double width = m_boxes[i]->size({rectangle.width(), heights[i]}).width();
        const double x = rectangle.left() + shareBefore(m_alignment) * (rectangle.width() - width);
        m_boxes[i]->place({x, y, width, heights[i]}, placer);
        y += heights[i] + m_gap;
    }
}

} // namespace vantel::scene
