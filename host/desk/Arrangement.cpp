#include "host/desk/Arrangement.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>

namespace vantel {

namespace {

constexpr double gapPoints = 24;

bool isLeft(Corner corner) {
    return corner == Corner::topLeft || corner == Corner::bottomLeft;
}

bool isTop(Corner corner) {
    return corner == Corner::topLeft || corner == Corner::topRight;
}

QPoint cornerPoint(const QRect& area, QSize card, int inset) {
    return {area.x() + area.width() - inset - card.width(), area.y() + inset};
}

bool keepsDistance(const QRect& card, const std::vector<QRect>& taken, int gap) {
    const QRect reach = card.adjusted(-gap, -gap, gap, gap);
    return std::ranges::none_of(taken, [&](const QRect& other) { return reach.intersects(other); });
}

/// Where a free place can begin, from the right and from the top: beside the area's edges and other cards.
std::vector<int> columns(QSize card, const std::vector<QRect>& taken, const QRect& area, int gap) {
    std::vector<int> lefts{cornerPoint(area, card, gap).x()};
    for (const QRect& other : taken) {
        lefts.push_back(other.x() + other.width() - card.width());
        lefts.push_back(other.x() - gap - card.width());
        lefts.push_back(other.x());
    }
    std::ranges::sort(lefts, std::greater());
    return lefts;
}

std::vector<int> rows(const std::vector<QRect>& taken, const QRect& area, int gap) {
    std::vector<int> tops{area.y() + gap};
    for (const QRect& other : taken) {
        tops.push_back(other.y());
        tops.push_back(other.y() + other.height() + gap);
    }
    std::ranges::sort(tops);
    return tops;
}

std::optional<QPoint> spotWithGap(QSize card, const std::vector<QRect>& taken, const QRect& area, int gap) {
    const QRect inside = area.adjusted(gap, gap, -gap, -gap);
    for (const int left : columns(card, taken, area, gap))
        for (const int top : rows(taken, area, gap)) {
            const QRect spot(QPoint(left, top), card);
            if (inside.contains(spot) && keepsDistance(spot, taken, gap))
                return spot.topLeft();
        }
    return std::nullopt;
}

/// Where the free place that is nearest to a wanted one can begin: as far along as that, or beside a card.
std::vector<int> nearColumns(const QRect& wanted, const std::vector<QRect>& taken, int gap) {
    std::vector<int> lefts{wanted.x()};
    for (const QRect& other : taken) {
        lefts.push_back(other.x() - gap - wanted.width());
        lefts.push_back(other.x() + other.width() + gap);
    }
    return lefts;
}

std::vector<int> nearRows(const QRect& wanted, const std::vector<QRect>& taken, int gap) {
    std::vector<int> tops{wanted.y()};
    for (const QRect& other : taken) {
        tops.push_back(other.y() - gap - wanted.height());
        tops.push_back(other.y() + other.height() + gap);
    }
    return tops;
}

std::optional<QPoint> nearestWithGap(const QRect& wanted, const std::vector<QRect>& taken, const QRect& area,
                                     int gap) {
    const QRect inside = area.adjusted(gap, gap, -gap, -gap);
    const QRect start(clamped(wanted, inside), wanted.size());
    std::optional<QPoint> nearest;
    int shortest = std::numeric_limits<int>::max();
    for (const int left : nearColumns(start, taken, gap))
        for (const int top : nearRows(start, taken, gap)) {
            const QRect spot(QPoint(left, top), wanted.size());
            const QPoint way = spot.topLeft() - wanted.topLeft();
            const int distance = QPoint::dotProduct(way, way);
            if (distance < shortest && inside.contains(spot) && keepsDistance(spot, taken, gap)) {
                nearest = spot.topLeft();
                shortest = distance;
            }
        }
    return nearest;
}

QPoint cascaded(QSize card, const std::vector<QRect>& taken, const QRect& area, int gap) {
    QRect spot(cornerPoint(area, card, gap), card);
    while (std::ranges::any_of(taken, [&](const QRect& other) { return other.topLeft() == spot.topLeft(); }))
        spot.translate(-gap, gap);
    return clamped(spot, area);
}

} // namespace

int cardGap(double scale) {
    return static_cast<int>(std::lround(gapPoints * scale));
}

QPoint freeSpot(QSize card, const std::vector<QRect>& taken, const QRect& area, double scale) {
    const int gap = cardGap(scale);
    for (const int closer : {gap, gap / 2, gap / 4, 0})
        if (const auto spot = spotWithGap(card, taken, area, closer))
            return *spot;
    return cascaded(card, taken, area, gap);
}

std::optional<QPoint> freeSpotNear(const QRect& wanted, const std::vector<QRect>& taken, const QRect& area,
                                   double scale) {
    const int gap = cardGap(scale);
    for (const int closer : {gap, gap / 2, gap / 4, 0})
        if (const auto spot = nearestWithGap(wanted, taken, area, closer))
            return spot;
    return std::nullopt;
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
