#include "host/desk/Arrangement.h"

#include <algorithm>
#include <cmath>

namespace vantel {

namespace {

constexpr double gapPoints = 24;

bool isLeft(Corner corner) {
    return corner == Corner::topLeft || corner == Corner::bottomLeft;
}

bool isTop(Corner corner) {
    return corner == Corner::topLeft || corner == Corner::topRight;
}

} // namespace

int cardGap(double scale) {
    return static_cast<int>(std::lround(gapPoints * scale));
}

Corner nearestCorner(const QRect& card, const QRect& screen) {
    const auto [left, top] = marginsFrom(Corner::topLeft, card, screen);
    const auto [right, bottom] = marginsFrom(Corner::bottomRight, card, screen);
    if (top <= bottom)
        return left < right ? Corner::topLeft : Corner::topRight;
    return left < right ? Corner::bottomLeft : Corner::bottomRight;
}

Margins marginsFrom(Corner corner, const QRect& card, const QRect& screen) {
    const int left = card.x() - screen.x();
    const int top = card.y() - screen.y();
    return {isLeft(corner) ? left : screen.width() - left - card.width(),
            isTop(corner) ? top : screen.height() - top - card.height()};
}

QPoint positionOf(const Placement& placement, QSize card, const QRect& screen) {
    const auto [horizontal, vertical] = placement.margins;
    const int x = isLeft(placement.corner) ? horizontal : screen.width() - horizontal - card.width();
    const int y = isTop(placement.corner) ? vertical : screen.height() - vertical - card.height();
    return clamped(QRect(screen.topLeft() + QPoint(x, y), card), screen);
}

QPoint clamped(const QRect& card, const QRect& area) {
    const int x = std::min(card.x(), area.x() + area.width() - card.width());
    const int y = std::min(card.y(), area.y() + area.height() - card.height());
    return {std::max(x, area.x()), std::max(y, area.y())};
}

} // namespace vantel
