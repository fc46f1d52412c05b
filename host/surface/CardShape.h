#pragma once

#include <QRegion>
#include <QSize>

namespace vantel {

/// The pixels that lie wholly inside a rectangle with round corners. Those that its edge cuts are left out:
/// where nothing blends them with what lies behind, they would be a dark rim.
QRegion roundedRegion(const QRect& rectangle, double radius);

} // namespace vantel
