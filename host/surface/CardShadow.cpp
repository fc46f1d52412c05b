#include "host/surface/CardShadow.h"

#include "host/scene/Look.h"

#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <QPixmapCache>
#include <algorithm>
#include <array>
#include <cmath>

namespace vantel {

namespace {

constexpr double reachPoints = 24;

/// How far along an edge a corner is felt: three deviations, and the way that the shadow falls.
constexpr double softness = 3 * 9 + 6;

struct Layer {
    double offset; ///< down
    double blur;   ///< twice the standard deviation
    double opacity;
};

constexpr std::array<Layer, 2> layers{{{1, 2, 0.18}, {6, 18, 0.14}}};

/// A card of the smallest size that has straight edges left, in a square with room for its shadow.
struct Tile {
    double ratio; ///< device pixels for a point
    int reach;    ///< around the card, in device pixels
    int edge;     ///< from the square's side to where the shadow no longer changes along it

    int side() const { return 2 * edge + 1; }
};

Tile tileFor(double scale, double pixelRatio) {
    const double ratio = scale * pixelRatio;
    const int reach = static_cast<int>(std::lround(shadowReach(scale) * pixelRatio));
    const int corner = static_cast<int>(std::ceil((cardCornerRadius + softness) * ratio));
    return {ratio, reach, reach + corner};
}

/// How far a point lies outside a card with round corners; negative inside. In points.
double distance(const QPointF& point, const QRectF& card) {
    const QPointF fromCenter = point - card.center();
    const double x = std::abs(fromCenter.x()) - card.width() / 2 + cardCornerRadius;
    const double y = std::abs(fromCenter.y()) - card.height() / 2 + cardCornerRadius;
    return std::hypot(std::max(x, 0.0), std::max(y, 0.0)) + std::min(std::max(x, y), 0.0) - cardCornerRadius;
}

/// The edge of a shadow falls off like the sum of a bell curve.
double coverage(double distance, const Layer& layer) {
    return std::erfc(distance / (layer.blur / 2 * std::sqrt(2.0))) / 2;
}

double opacity(const QPointF& point, const QRectF& card) {
    double light = 1;
    for (const Layer& layer : layers)
        light *= 1 - layer.opacity * coverage(distance(point, card.translated(0, layer.offset)), layer);
    return 1 - light;
}

QImage tileImage(const Tile& tile) {
    const double reach = tile.reach / tile.ratio;
    const double length = tile.side() / tile.ratio - 2 * reach;
    const QRectF card(reach, reach, length, length);
    QImage image(tile.side(), tile.side(), QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < tile.side(); ++y)
        for (int x = 0; x < tile.side(); ++x) {
            const double dark = opacity(QPointF(x + 0.5, y + 0.5) / tile.ratio, card);
            image.setPixel(x, y, qRgba(0, 0, 0, static_cast<int>(std::lround(255 * dark))));
        }
    return image;
}

QPixmap tilePixmap(const Tile& tile) {
    const QString key = QStringLiteral("vantel-shadow-%1-%2").arg(tile.ratio).arg(tile.reach);
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = QPixmap::fromImage(tileImage(tile));
        QPixmapCache::insert(key, pixmap);
    }
    return pixmap;
}

/// The three stretches of one axis, of the picture and of the window: corner, middle, corner.
struct Cut {
    std::array<double, 4> source;
    std::array<double, 4> target;
};

Cut cut(const Tile& tile, double begin, double length, double pixelRatio) {
    const double edge = std::min(tile.edge / pixelRatio, length / 2);
    const double sourceEdge = edge * pixelRatio;
    return {{0, sourceEdge, tile.side() - sourceEdge, static_cast<double>(tile.side())},
            {begin, begin + edge, begin + length - edge, begin + length}};
}

QRectF part(const std::array<double, 4>& x, const std::array<double, 4>& y, std::size_t column,
            std::size_t row) {
    return {QPointF(x[column], y[row]), QPointF(x[column + 1], y[row + 1])};
}

} // namespace

int shadowReach(double scale) {
    return static_cast<int>(std::lround(reachPoints * scale));
}

void drawCardShadow(QPainter& painter, const QRect& card, double scale) {
    const double pixelRatio = painter.device()->devicePixelRatioF();
    const Tile tile = tileFor(scale, pixelRatio);
    const QPixmap pixmap = tilePixmap(tile);
    const int reach = shadowReach(scale);
    const QRectF all = card.adjusted(-reach, -reach, reach, reach);
    const Cut x = cut(tile, all.x(), all.width(), pixelRatio);
    const Cut y = cut(tile, all.y(), all.height(), pixelRatio);
    for (std::size_t row = 0; row < 3; ++row)
        for (std::size_t column = 0; column < 3; ++column)
            painter.drawPixmap(part(x.target, y.target, column, row), pixmap,
                               part(x.source, y.source, column, row));
}

} // namespace vantel
