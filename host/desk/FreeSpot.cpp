#include "host/desk/Arrangement.h"

#include <QGuiApplication>
#include <QSizeF>
#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>

namespace vantel {

namespace {

constexpr QSizeF titlePoints(96, 40);

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

/// A card along one axis.
struct Span {
    int start;
    int length;
};

Span acrossSpan(const QRect& card) {
    return {card.x(), card.width()};
}

Span downSpan(const QRect& card) {
    return {card.y(), card.height()};
}

/// Where, along one axis, the free place that is nearest to a wanted one can begin: as far along as that, or
/// beside a card.
std::vector<int> nearStarts(Span (*spanOf)(const QRect&), const QRect& wanted,
                            const std::vector<QRect>& taken, int gap) {
    const Span own = spanOf(wanted);
    std::vector<int> starts{own.start};
    for (const QRect& card : taken) {
        const Span other = spanOf(card);
        starts.push_back(other.start - gap - own.length);
        starts.push_back(other.start + other.length + gap);
    }
    return starts;
}

std::optional<QPoint> nearestWithGap(const QRect& wanted, const std::vector<QRect>& taken, const QRect& area,
                                     int gap) {
    const QRect inside = area.adjusted(gap, gap, -gap, -gap);
    const QRect start(clamped(wanted, inside), wanted.size());
    std::optional<QPoint> nearest;
    int shortest = std::numeric_limits<int>::max();
    for (const int left : nearStarts(acrossSpan, start, taken, gap))
        for (const int top : nearStarts(downSpan, start, taken, gap)) {
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

/// Where a card says what it is, which shall be seen though another card lies over the rest.
QRect titleOf(const QRect& card, double scale) {
    const QSize title = titleSize(scale);
    const bool isMirrored = QGuiApplication::layoutDirection() == Qt::RightToLeft;
    return {card.topLeft() + QPoint(isMirrored ? card.width() - title.width() : 0, 0), title};
}

/// Which of two cards the window system may show above the other.
enum class Above { either, later };

bool leavesTitles(const QRect& card, const std::vector<QRect>& taken, double scale, Above above) {
    const QRect title = titleOf(card, scale);
    return std::ranges::none_of(taken, [&](const QRect& other) {
        return titleOf(other, scale).intersects(card) || (above == Above::either && title.intersects(other));
    });
}

/// Where a card over others can begin so that a title is left free, from the right and from the top.
std::vector<QPoint> stepsFrom(const std::vector<QRect>& taken, QSize card, const QRect& inside,
                              double scale) {
    const QSize step = titleSize(scale);
    std::vector<int> lefts{inside.x(), inside.x() + inside.width() - card.width()};
    std::vector<int> tops{inside.y()};
    for (const QRect& other : taken) {
        const int right = other.x() + other.width() - card.width();
        lefts.insert(lefts.end(), {other.x() - step.width(), other.x(), other.x() + step.width(),
                                   right - step.width(), right, right + step.width()});
        tops.insert(tops.end(), {other.y() - step.height(), other.y(), other.y() + step.height()});
    }
    std::ranges::sort(lefts, std::greater());
    std::ranges::sort(tops);
    std::vector<QPoint> steps;
    for (const int left : lefts)
        for (const int top : tops)
            steps.emplace_back(left, top);
    return steps;
}

std::optional<QPoint> spotBesideTitles(QSize card, const std::vector<QRect>& taken, const QRect& area,
                                       double scale, Above above) {
    for (const int edge : {cardGap(scale), 0}) {
        const QRect inside = area.adjusted(edge, edge, -edge, -edge);
        for (const QPoint& step : stepsFrom(taken, card, inside, scale)) {
            const QRect spot(step, card);
            if (inside.contains(spot) && leavesTitles(spot, taken, scale, above))
                return step;
        }
    }
    return std::nullopt;
}

QPoint cascaded(QSize card, const std::vector<QRect>& taken, const QRect& area, int gap) {
    QRect spot(cornerPoint(area, card, gap), card);
    while (std::ranges::any_of(taken, [&](const QRect& other) { return other.topLeft() == spot.topLeft(); }))
        spot.translate(-gap, gap);
    return clamped(spot, area);
}

} // namespace

QSize titleSize(double scale) {
    return (titlePoints * scale).toSize();
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

QPoint freeSpot(QSize card, const std::vector<QRect>& taken, const QRect& area, double scale) {
    const int gap = cardGap(scale);
    for (const int closer : {gap, gap / 2, gap / 4, 0})
        if (const auto spot = spotWithGap(card, taken, area, closer))
            return *spot;
    for (const Above above : {Above::either, Above::later})
        if (const auto spot = spotBesideTitles(card, taken, area, scale, above))
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

} // namespace vantel
