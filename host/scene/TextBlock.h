#pragma once

#include "host/scene/SceneFont.h"

#include <QGlyphRun>
#include <QList>
#include <QSizeF>
#include <vector>

class QPainter;

namespace vantel::scene {

/// One line of shaped glyphs. Positions count from the line's leading end and baseline, in pixels of the
/// enlarged font that it was laid out with.
struct TextLine {
    QList<QGlyphRun> glyphs;
    double width; ///< in points
    double pixelsPerPoint;

    bool operator==(const TextLine&) const = default;
};

/// Lines of text that fit a room, shaped once and drawn many times.
struct TextBlock {
    std::vector<TextLine> lines;
    LineMetrics metrics{};
    double narrowest = 0; ///< the least room, in points, that breaks the text in the same places
    bool isCut = false;   ///< ends in an ellipsis

    QSizeF size() const;

    bool operator==(const TextBlock&) const = default;
};

/// The room that a text has: a width in points, and how many lines.
struct TextRoom {
    double width;
    int lines;

    bool operator==(const TextRoom&) const = default;
};

/// Breaks a text at words into at most the lines of the room; what does not fit ends in an ellipsis.
TextBlock textBlock(const QString& text, const SceneFont& font, const LineMetrics& metrics,
                    const TextRoom& room);

/// Draws a line from where it begins on its baseline, in points.
void drawLine(QPainter& painter, const QPointF& begin, const TextLine& line);

/// A whole text on one line, however long.
TextLine unbrokenLine(const QString& text, const SceneFont& font);

} // namespace vantel::scene
