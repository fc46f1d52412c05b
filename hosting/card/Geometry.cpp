#include "hosting/card/Geometry.h"

#include <algorithm>
#include <cmath>

namespace vantel::card {

namespace {

constexpr double pointsPerColumn = 6;
constexpr double pointsPerRow = 16;

/// A length that is not a number, or negative, is none.
double cells(double points, double pointsPerCell) {
    constexpr double most = 1000;
    return points > 0 ? std::min(points / pointsPerCell, most) : 0;
}

} // namespace

int columnsIn(double points) {
    return static_cast<int>(cells(points, pointsPerColumn));
}

int rowsIn(double points) {
    return static_cast<int>(cells(points, pointsPerRow));
}

int columnsFor(double points) {
    return std::max(1, static_cast<int>(std::round(cells(points, pointsPerColumn))));
}

int rowsFor(double points) {
    return std::max(1, static_cast<int>(std::round(cells(points, pointsPerRow))));
}

} // namespace vantel::card
