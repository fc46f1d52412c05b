#include "host/scene/TextBlock.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QTextLayout>
#include <QTextOption>
#include <algorithm>
#include <cmath>

namespace vantel::scene {

namespace {

/// Glyph positions come out relative to the layout's top; a line is drawn from its baseline.
QList<QGlyphRun> glyphsFromBaseline(const QTextLine& line) {
    QList<QGlyphRun> runs = line.glyphRuns();
    for (QGlyphRun& run : runs) {
        QList<QPointF> positions = run.positions();
        for (QPointF& position : positions)
            position.ry() -= line.y() + line.ascent();
        run.setPositions(positions);
    }
    return runs;
}

/// A blank before the ellipsis would make it stand apart from the word it cuts.
QString elided(const QString& text, const SceneFont& font, double width) {
    constexpr QChar ellipsis(0x2026);
    QString result = QFontMetricsF(font.font).elidedText(text, Qt::ElideRight, width * font.pixelsPerPoint);
    while (result.size() > 1 && result.endsWith(ellipsis) && result.at(result.size() - 2).isSpace())
        result.remove(result.size() - 2, 1);
    return result;
}

struct Break {
    int start;
    int length;
    double width; ///< in points
};

/// Where lines of a width begin, as far as one line beyond the limit.
std::vector<Break> breaks(const QString& text, const SceneFont& font, const TextRoom& room) {
    QTextLayout layout(text, font.font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    std::vector<Break> result;
    layout.beginLayout();
    for (int i = 0; i <= room.lines; ++i) {
        QTextLine line = layout.createLine();
        if (!line.isValid())
            break;
        line.setLineWidth(room.width * font.pixelsPerPoint);
        const double width = line.naturalTextWidth() / font.pixelsPerPoint;
        result.push_back({line.textStart(), line.textLength(), width});
    }
    layout.endLayout();
    return result;
}

} // namespace

QSizeF TextBlock::size() const {
    double width = 0;
    for (const TextLine& line : lines)
        width = std::max(width, line.width);
    return {width, metrics.height(lines.size())};
}

TextBlock textBlock(const QString& text, const SceneFont& font, const LineMetrics& metrics,
                    const TextRoom& room) {
    TextBlock block{{}, metrics};
    const auto addLast = [&](const QString& rest) {
        const QString shown = elided(rest, font, room.width);
        block.isCut = shown != rest;
        block.lines.push_back(unbrokenLine(shown, font));
        block.narrowest = std::max(block.narrowest, block.lines.back().width);
        return block;
    };
    if (room.lines <= 1)
        return addLast(text);
    const std::vector<Break> found = breaks(text, font, room);
    const auto limit = static_cast<std::size_t>(room.lines);
    for (std::size_t i = 0; i < found.size(); ++i) {
        if (i + 1 == limit && found.size() > limit)
            return addLast(text.mid(found[i].start));
        block.lines.push_back(unbrokenLine(text.mid(found[i].start, found[i].length).trimmed(), font));
        block.narrowest = std::max(block.narrowest, found[i].width);
    }
    return block;
}

void drawLine(QPainter& painter, const QPointF& begin, const TextLine& line) {
    painter.save();
    painter.translate(begin);
    painter.scale(1 / line.pixelsPerPoint, 1 / line.pixelsPerPoint);
    for (const QGlyphRun& run : line.glyphs)
        painter.drawGlyphRun({0, 0}, run);
    painter.restore();
}

TextLine unbrokenLine(const QString& text, const SceneFont& font) {
    QTextLayout layout(text, font.font);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    if (line.isValid()) {
        line.setNumColumns(static_cast<int>(text.size()));
        line.setPosition({0, 0});
    }
    layout.endLayout();
    if (!line.isValid())
        return {{}, 0, font.pixelsPerPoint};
    return {glyphsFromBaseline(line), line.naturalTextWidth() / font.pixelsPerPoint, font.pixelsPerPoint};
}

} // namespace vantel::scene
