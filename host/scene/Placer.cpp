#include "host/scene/Placer.h"

#include <utility>

namespace vantel::scene {

namespace {

/// The room before a line, as a fraction of what the line leaves.
double shareBefore(HorizontalAlignment alignment, Qt::LayoutDirection direction) {
    if (alignment == HorizontalAlignment::center)
        return 0.5;
    const bool isLeading = alignment == HorizontalAlignment::leading;
    return isLeading == (direction == Qt::LeftToRight) ? 0 : 1;
}

} // namespace

Placer::Placer(Scene& scene, Qt::LayoutDirection direction)
    : m_scene(scene)
    , m_direction(direction) {}

void Placer::addText(const QRectF& rectangle, TextPiece piece, HorizontalAlignment alignment) {
    const QRectF place = mirrored(rectangle);
    const double share = shareBefore(alignment, m_direction);
    piece.isTurned = piece.isTurned && m_direction == Qt::RightToLeft;
    double baseline = place.top() + piece.block.metrics.ascent;
    for (const TextLine& line : piece.block.lines) {
        piece.baselines.emplace_back(place.left() + share * (place.width() - line.width), baseline);
        baseline += piece.block.metrics.pitch;
    }
    m_scene.pieces.push_back({place, std::move(piece), m_row});
}

void Placer::add(const QRectF& rectangle, std::variant<TextPiece, SymbolPiece, ShapePiece> drawing) {
    m_scene.pieces.push_back({mirrored(rectangle), std::move(drawing), m_row});
}

void Placer::addTarget(const QRectF& rectangle, std::variant<Url, IntentCall> action, const QString& label) {
    m_scene.reading.emplace_back(Target{mirrored(rectangle), std::move(action), label, m_row});
}

void Placer::addSpoken(const QRectF& rectangle, const QString& text) {
    if (m_silence == 0 && !text.isEmpty())
        m_scene.reading.emplace_back(Spoken{mirrored(rectangle), text});
}

std::optional<std::size_t> Placer::enterRow() {
    return std::exchange(m_row, m_rowCount++);
}

QRectF Placer::mirrored(const QRectF& rectangle) const {
    if (m_direction == Qt::LeftToRight)
        return rectangle;
    return {m_scene.size.width() - rectangle.right(), rectangle.top(), rectangle.width(), rectangle.height()};
}

} // namespace vantel::scene
