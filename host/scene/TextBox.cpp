#include "host/scene/TextBox.h"

#include "host/scene/Placer.h"

#include <algorithm>
#include <cmath>

namespace vantel::scene {

namespace {

/// Sums of widths differ in their last digits, and no one sees that much of a point.
constexpr double tolerance = 0.05;

/// Letters do not become narrower quite as they become smaller.
constexpr double shrinking = 0.98;

/// A sign that points to where the reading goes on.
bool isArrow(const QString& text) {
    return text == QStringLiteral("▸");
}

} // namespace

TextBox::TextBox(QString text, const TextStyle& style, const Look& look, HorizontalAlignment alignment)
    : m_text(std::move(text))
    , m_style(style)
    , m_look(look)
    , m_alignment(alignment)
    , m_font(sceneFont(style, look))
    , m_metrics(lineMetrics(m_font, style.font.size))
    , m_line(unbrokenLine(m_text, m_font)) {}

QSizeF TextBox::measured(const Proposal& proposal) const {
    const double width = proposal.width.value_or(unbounded);
    if (m_line.width <= width + tolerance)
        return {m_line.width, m_metrics.height()};
    return block(std::max(width, leastWidth()), proposal.height).size();
}

void TextBox::place(const QRectF& rectangle, Placer& placer) const {
    TextPiece piece{block(rectangle.width() + tolerance, rectangle.height() + tolerance),
                    {},
                    m_style.color,
                    m_style.invalidatable,
                    isArrow(m_text)};
    placer.addText(rectangle, std::move(piece), m_alignment);
    placer.addSpoken(rectangle, m_text);
}

TextBlock TextBox::block(double width, std::optional<double> height) const {
    if (m_line.width <= width)
        return {{m_line}, m_metrics};
    const int limit = lineLimit(height);
    const double size = limit == 1 ? fraction(width) : 1;
    const SceneFont font = size < 1 ? sceneFont(m_style, m_look, size) : m_font;
    return textBlock(m_text, font, m_metrics, {width, limit});
}

int TextBox::lineLimit(std::optional<double> height) const {
    const int styled = std::clamp(m_style.lineLimit.value_or(1000), 1, 1000);
    const double further = height.value_or(unbounded) + tolerance - m_metrics.height();
    const double fitting = 1 + std::floor(further / m_metrics.pitch);
    return static_cast<int>(std::clamp(fitting, 1.0, static_cast<double>(styled)));
}

double TextBox::fraction(double width) const {
    const double least = std::clamp(m_style.minimumScaleFactor, 0.1, 1.0);
    return std::max(least, shrinking * width / m_line.width);
}

/// A letter and an ellipsis.
double TextBox::leastWidth() const {
    return std::min(m_line.width, m_style.font.size);
}

} // namespace vantel::scene
