#include "host/surface/CardShadow.h"

#include "host/scene/Look.h"

#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <QPixmapCache>
#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

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

std::vector<float> bell(double deviation) {
    const int reach = static_cast<int>(std::ceil(deviation * 3));
    std::vector<float> weights;
    float sum = 0;
    for (int i = -reach; i <= reach; ++i)
        sum += weights.emplace_back(static_cast<float>(std::exp(-i * i / (2 * deviation * deviation))));
    for (float& weight : weights)
        weight /= sum;
    return weights;
}

/// A square of opacities, row by row.
struct Opacities {
    explicit Opacities(int length)
        : side(length)
        , values(static_cast<std::size_t>(length * length)) {}

    float* row(int y) { return values.data() + y * side; }
    float& at(int x, int y) { return row(y)[x]; }

    int side;
    std::vector<float> values;
};

void addShifted(const float* source, float* target, int length, int shift, float weight) {
    const int end = std::min(length, length - shift);
    for (int x = std::max(0, -shift); x < end; ++x)
        target[x] += weight * source[x + shift];
}

Opacities blurredAlongRows(Opacities source, const std::vector<float>& weights) {
    Opacities result(source.side);
    const int reach = static_cast<int>(weights.size() / 2);
    for (int y = 0; y < source.side; ++y)
        for (int i = -reach; i <= reach; ++i)
            addShifted(source.row(y), result.row(y), source.side, i,
                       weights[static_cast<std::size_t>(i + reach)]);
    return result;
}

Opacities turned(Opacities source) {
    Opacities result(source.side);
    for (int y = 0; y < source.side; ++y)
        for (int x = 0; x < source.side; ++x)
            result.at(y, x) = source.at(x, y);
    return result;
}

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

/// How many samples a layer takes along a device pixel: no more than its softness needs.
double sampling(const Tile& tile, const Layer& layer) {
    constexpr double enoughForADeviation = 1.5;
    const double wanted = std::min(1.0, enoughForADeviation / (layer.blur / 2 * tile.ratio));
    return std::ceil(tile.side() * wanted) / tile.side();
}

Opacities cardOpacities(const Tile& tile, double offset, double samples) {
    const int side = static_cast<int>(std::lround(tile.side() * samples));
    QImage image(side, side, QImage::Format_Alpha8);
    image.fill(0);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    painter.scale(samples, samples);
    const double length = tile.side() - 2.0 * tile.reach;
    painter.drawRoundedRect(QRectF(tile.reach, tile.reach + offset * tile.ratio, length, length),
                            cardCornerRadius * tile.ratio, cardCornerRadius * tile.ratio);
    painter.end();
    Opacities opacities(side);
    for (int y = 0; y < side; ++y)
        std::transform(image.constScanLine(y), image.constScanLine(y) + side, opacities.row(y),
                       [](uchar opacity) { return opacity; });
    return opacities;
}

QImage blackOf(Opacities opacities) {
    QImage image(opacities.side, opacities.side, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < opacities.side; ++y)
        std::transform(opacities.row(y), opacities.row(y) + opacities.side,
                       reinterpret_cast<QRgb*>(image.scanLine(y)),
                       [](float opacity) { return qRgba(0, 0, 0, static_cast<int>(std::lround(opacity))); });
    return image;
}

QImage shadowOf(const Tile& tile, const Layer& layer) {
    const double samples = sampling(tile, layer);
    const auto weights = bell(layer.blur / 2 * tile.ratio * samples);
    const auto across = blurredAlongRows(cardOpacities(tile, layer.offset, samples), weights);
    return blackOf(turned(blurredAlongRows(turned(across), weights)));
}

QImage tileImage(const Tile& tile) {
    QImage image(tile.side(), tile.side(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    for (const Layer& layer : layers) {
        painter.setOpacity(layer.opacity);
        painter.drawImage(image.rect(), shadowOf(tile, layer));
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
