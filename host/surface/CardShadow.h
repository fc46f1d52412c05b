#pragma once

#include <QRect>

class QPainter;

namespace vantel {

/// How far a card's shadow reaches beyond it, at a scale: the margin that its window needs around it.
int shadowReach(double scale);

/// Draws the soft shadow around a card, and nothing where the card is. The picture of its corners is made
/// once for each scale and resolution, and stretched between them.
void drawCardShadow(QPainter& painter, const QRect& card, double scale);

} // namespace vantel
