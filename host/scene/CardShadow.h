#pragma once

#include <QImage>

namespace vantel::scene {

/// How far the shadow reaches beyond its card, in points.
inline constexpr double shadowMargin = 28;

/// The shadow of a card of that size (in points), drawn for `scale` pixels a point: a picture larger than the
/// card by the shadow's margin on each side. Where the card lies it is empty.
QImage cardShadow(const QSizeF& cardSize, double scale);

} // namespace vantel::scene
