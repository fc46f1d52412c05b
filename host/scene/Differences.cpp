#include "host/scene/Differences.h"

#include <QRawFont>
#include <algorithm>

namespace vantel::scene {

namespace {

/// How far the letters of a plain text may lean out of its rectangle.
constexpr double overhang = 4;

bool isPlain(const QGlyphRun& run) {
    return std::ranges::all_of(run.positions(), [](const QPointF& place) { return place.y() == 0; });
}

/// Fonts that stand in for the text's own may be higher and deeper than it.
bool isPlain(const TextBlock& block) {
    const double highest = block.metrics.ascent + overhang;
    const double deepest = block.metrics.descent + overhang;
    return std::ranges::all_of(block.lines, [&](const TextLine& line) {
        return std::ranges::all_of(line.glyphs, [&](const QGlyphRun& run) {
            const QRawFont font = run.rawFont();
            return isPlain(run) && font.ascent() / line.pixelsPerPoint <= highest &&
                   font.descent() / line.pixelsPerPoint <= deepest;
        });
    });
}

/// Whether all of it is drawn near its rectangle. A shape that is turned, or marks above letters, are not.
bool isPlain(const Piece& piece) {
    if (const auto* text = std::get_if<TextPiece>(&piece.drawing))
        return isPlain(text->block);
    const auto* shape = std::get_if<ShapePiece>(&piece.drawing);
    return shape == nullptr || shape->rotation == 0;
}

} // namespace

std::optional<std::vector<QRectF>> differences(const Scene& before, const Scene& after) {
    if (before.size != after.size || before.background != after.background ||
        before.pieces.size() != after.pieces.size())
        return std::nullopt;
    std::vector<QRectF> places;
    for (std::size_t i = 0; i < after.pieces.size(); ++i) {
        const Piece& old = before.pieces[i];
        const Piece& fresh = after.pieces[i];
        if (old == fresh)
            continue;
        if (!isPlain(old) || !isPlain(fresh))
            return std::nullopt;
        places.push_back(
            old.rectangle.united(fresh.rectangle).adjusted(-overhang, -overhang, overhang, overhang));
    }
    return places;
}

} // namespace vantel::scene
