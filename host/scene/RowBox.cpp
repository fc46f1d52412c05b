#include "host/scene/LineBox.h"
#include "host/scene/Placer.h"

#include <algorithm>

namespace vantel::scene {

RowBox::RowBox(Boxes boxes, VerticalAlignment alignment, double gap)
    : m_boxes(std::move(boxes))
    , m_alignment(alignment)
    , m_gap(gap) {}

RowBox::Sizes RowBox::sizes(std::optional<double> width, std::optional<double> height) const {
    const std::vector<double> widths = lengths(m_boxes, {Axis::horizontal, width, height, m_gap});
    Sizes result{{}, 0, 0};
    double below = 0;
    for (std::size_t i = 0; i < m_boxes.size(); ++i) {
        QSizeF size = m_boxes[i]->size({widths[i], height});
        size.setWidth(widths[i]);
        const double baseline = m_boxes[i]->firstBaseline(size);
        result.sizes.push_back(size);
        result.height = std::max(result.height, size.height());
        result.baseline = std::max(result.baseline, baseline);
        below = std::max(below, size.height() - baseline);
    }
    if (m_alignment == VerticalAlignment::firstTextBaseline)
        result.height = result.baseline + below;
    return result;
}

QSizeF RowBox::measured(const Proposal& proposal) const {
    const Sizes all = sizes(proposal.width, proposal.height);
    double width = 0;
    for (const QSizeF& size : all.sizes)
        width += size.width();
    const auto gaps = static_cast<double>(all.sizes.size()) - 1;
    return {width + std::max(0.0, gaps) * m_gap, all.height};
}

double RowBox::firstBaseline(const QSizeF& size) const {
    return sizes(size.width(), size.height()).baseline;
}

double RowBox::top(const QRectF& rectangle, std::size_t index, const Sizes& sizes) const {
    const double height = sizes.sizes[index].height();
    switch (m_alignment) {
    case VerticalAlignment::top:
        return rectangle.top();
    case VerticalAlignment::center:
        return rectangle.top() + (rectangle.height() - height) / 2;
    case VerticalAlignment::bottom:
        return rectangle.bottom() - height;
    case VerticalAlignment::firstTextBaseline:
        return rectangle.top() + sizes.baseline - m_boxes[index]->firstBaseline(sizes.sizes[index]);
    }
    return rectangle.top();
}

void RowBox::place(const QRectF& rectangle, Placer& placer) const {
    const auto outerRow = placer.enterRow();
    const Sizes all = sizes(rectangle.width(), rectangle.height());
    double x = rectangle.left();
    for (std::size_t i = 0; i < m_boxes.size(); ++i) {
        const QSizeF& size = all.sizes[i];
        m_boxes[i]->place({{x, top(rectangle, i, all)}, size}, placer);
        x += size.width() + m_gap;
    }
    placer.leaveRow(outerRow);
}

} // namespace vantel::scene
