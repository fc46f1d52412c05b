#include "host/scene/CardShadow.h"

#include "host/scene/Look.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

namespace vantel::scene {

namespace {

/// One soft layer: how far it falls, how far it spreads, how dark it is.
struct Layer {
    double offset;
    double blur;
    double opacity;
};

constexpr Layer layers[] = {{1, 2, 0.18}, {6, 18, 0.14}};

/// How far a point lies outside a rectangle with round corners; negative inside.
double distance(const QPointF& point, const QRectF& card) {
    const QPointF fromCenter = point - card.center();
    const double x = std::abs(fromCenter.x()) - card.width() / 2 + cardCornerRadius;
    const double y = std::abs(fromCenter.y()) - card.height() / 2 + cardCornerRadius;
    const double outside = std::hypot(std::max(x, 0.0), std::max(y, 0.0));
    return outside + std::min(std::max(x, y), 0.0) - cardCornerRadius;
}

/// A blurred edge falls off like the sum of a bell curve, half as wide as the blur.
double coverage(double distance, double blur) {
    return 0.5 * std::erfc(distance / (blur / 2 * std::sqrt(2.0)));
}

double opacityAt(const QPointF& point, const QRectF& card) {
    double clear = 1;
    for (const Layer& layer : layers)
        clear *= 1 - layer.opacity * coverage(distance(point, card.translated(0, layer.offset)), layer.blur);
    return 1 - clear;
}

void cutCard(QImage& image, const QRectF& card, double scale) {
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    painter.scale(scale, scale);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    painter.drawRoundedRect(card, cardCornerRadius, cardCornerRadius);
}

} // namespace

QImage cardShadow(const QSizeF& cardSize, double scale) {
    const QSizeF whole = cardSize + 2 * QSizeF(shadowMargin, shadowMargin);
    const QRectF card({shadowMargin, shadowMargin}, cardSize);
    QImage image((whole * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < image.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x)
            line[x] = qRgba(
                0, 0, 0,
                static_cast<int>(std::lround(255 * opacityAt(QPointF(x + 0.5, y + 0.5) / scale, card))));
    }
    cutCard(image, card, scale);
    return image;
}

} // namespace vantel::scene
