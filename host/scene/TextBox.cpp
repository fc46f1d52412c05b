#include "host/scene/TextBox.h"

#include "host/scene/Placer.h"

#include <algorithm>
#include <utility>

namespace vantel::scene {

namespace {

/// Sums of widths differ in their last digits, and no one sees that much of a point.
constexpr double tolerance = 0.05;

/// A sign that points to where the reading goes on.
bool isArrow(const QString& text) {
    return text == QStringLiteral("▸");
}

} // namespace

TextBox::TextBox(std::shared_ptr<const ShapedText> text, HorizontalAlignment alignment)
    : m_text(std::move(text))
    , m_alignment(alignment) {}

QSizeF TextBox::measured(const Proposal& proposal) const {
    const double width = proposal.width.value_or(unbounded) + tolerance;
    return m_text->block(std::max(width, leastWidth()), proposal.height).size();
}

void TextBox::place(const QRectF& rectangle, Placer& placer) const {
    const TextStyle& style = m_text->style();
    TextPiece piece{m_text->block(rectangle.width() + tolerance, rectangle.height()),
                    {},
                    style.color,
                    style.invalidatable,
                    isArrow(m_text->text())};
    placer.addText(rectangle, std::move(piece), m_alignment);
    placer.addSpoken(rectangle, m_text->text());
}

/// A letter and an ellipsis.
double TextBox::leastWidth() const {
    return std::min(m_text->width(), m_text->style().font.size);
}

} // namespace vantel::scene
