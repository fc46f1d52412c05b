#include "host/surface/CardShape.h"

#include <algorithm>
#include <cmath>

namespace vantel {

namespace {

/// How far in a row begins whose farther edge is `distance` from where the corner's centre is.
int inset(double distance, double radius) {
    return static_cast<int>(std::ceil(radius - std::sqrt(radius * radius - distance * distance)));
}

QRect scaled(const QRect& rectangle, double ratio) {
    const auto device = [ratio](int logical) { return static_cast<int>(std::lround(logical * ratio)); };
    const QPoint begin(device(rectangle.x()), device(rectangle.y()));
    const QPoint end(device(rectangle.x() + rectangle.width()), device(rectangle.y() + rectangle.height()));
    return {begin, QSize(end.x() - begin.x(), end.y() - begin.y())};
}

} // namespace

QRegion roundedRegion(const QRect& rectangle, double radius) {
    const double limit = std::min({radius, rectangle.width() / 2.0, rectangle.height() / 2.0});
    const int rows = static_cast<int>(std::ceil(limit));
    QRegion region(rectangle.adjusted(0, rows, 0, -rows));
    for (int row = 0; row < rows; ++row) {
        const int in = inset(limit - row, limit);
        const int width = rectangle.width() - 2 * in;
        region += QRect(rectangle.x() + in, rectangle.y() + row, width, 1);
        region += QRect(rectangle.x() + in, rectangle.y() + rectangle.height() - 1 - row, width, 1);
    }
    return region;
}

QRegion insideOf(const CardShape& shape, double pixelRatio) {
    return roundedRegion(scaled(shape.card, pixelRatio), shape.radius * pixelRatio);
}

} // namespace vantel
