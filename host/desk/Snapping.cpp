#include "host/desk/Arrangement.h"

#include <cmath>
#include <cstdlib>
#include <optional>

namespace vantel {

namespace {

constexpr int gridStep = 8;
constexpr int attraction = 12;

/// A stretch of one axis.
struct Stretch {
    int begin;
    int length;

    int end() const { return begin + length; }
};

Stretch horizontal(const QRect& rectangle) {
    return {rectangle.x(), rectangle.width()};
}

Stretch vertical(const QRect& rectangle) {
    return {rectangle.y(), rectangle.height()};
}

/// Remembers the candidate nearest to where the card is wanted.
struct Nearest {
    int wanted;
    std::optional<int> best = std::nullopt;

    void offer(int candidate) {
        const int distance = std::abs(candidate - wanted);
        if (distance <= attraction && (!best || distance < std::abs(*best - wanted)))
            best = candidate;
    }
};

void offerEdges(Nearest& nearest, Stretch card, Stretch neighbour) {
    nearest.offer(neighbour.begin);
    nearest.offer(neighbour.end() - card.length);
}

void offerSides(Nearest& nearest, Stretch card, Stretch neighbour, int gap) {
    nearest.offer(neighbour.end() + gap);
    nearest.offer(neighbour.begin - gap - card.length);
}

int onGrid(int wanted, int origin) {
    const double steps = std::round(static_cast<double>(wanted - origin) / gridStep);
    return origin + static_cast<int>(steps) * gridStep;
}

int snappedAlong(Stretch (*axis)(const QRect&), const QRect& wanted, const std::vector<QRect>& neighbours,
                 const QRect& inside, int gap) {
    const Stretch card = axis(wanted);
    Nearest nearest{card.begin};
    offerEdges(nearest, card, axis(inside));
    for (const QRect& neighbour : neighbours) {
        offerEdges(nearest, card, axis(neighbour));
        offerSides(nearest, card, axis(neighbour), gap);
    }
    return nearest.best.value_or(onGrid(card.begin, axis(inside).begin));
}

} // namespace

QPoint snapped(const QRect& wanted, const std::vector<QRect>& neighbours, const QRect& area, double scale) {
    const int gap = cardGap(scale);
    const QRect inside = area.adjusted(gap, gap, -gap, -gap);
    const int x = snappedAlong(horizontal, wanted, neighbours, inside, gap);
    const int y = snappedAlong(vertical, wanted, neighbours, inside, gap);
    return clamped(QRect(QPoint(x, y), wanted.size()), inside);
}

} // namespace vantel
