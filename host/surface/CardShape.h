#pragma once

#include <QRegion>

namespace vantel {

/// The pixels that lie wholly inside a rectangle with round corners. Those that its edge cuts are left out:
/// where nothing blends them with what lies behind, they would be a dark rim.
QRegion roundedRegion(const QRect& rectangle, double radius);

/// A card in its window, in logical pixels of the window.
struct CardShape {
    QRect card = {};
    double radius = 0; ///< of its corners
};

/// The pixels of the window that lie wholly inside its card, at so many device pixels for a logical one.
QRegion insideOf(const CardShape& shape, double pixelRatio);

} // namespace vantel
