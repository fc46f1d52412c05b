#include "host/scene/LeafBoxes.h"

#include "host/scene/Placer.h"

namespace vantel::scene {

void SymbolBox::place(const QRectF& rectangle, Placer& placer) const {
    placer.add(rectangle, m_symbol);
}

QSizeF RuleBox::measured(const Proposal& proposal) const {
    if (m_rule.axis == Axis::horizontal)
        return {proposal.width.value_or(m_rule.thickness), m_rule.thickness};
    return {m_rule.thickness, proposal.height.value_or(m_rule.thickness)};
}

void RuleBox::place(const QRectF& rectangle, Placer& placer) const {
    placer.add(rectangle, ShapePiece{.color = m_rule.color, .isHairline = true});
}

void RectangleBox::place(const QRectF& rectangle, Placer& placer) const {
    placer.add(rectangle, ShapePiece{.color = m_shape.color,
                                     .cornerRadius = m_shape.cornerRadius,
                                     .rotation = m_shape.rotation});
}

} // namespace vantel::scene
