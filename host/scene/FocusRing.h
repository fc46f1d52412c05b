#pragma once

#include <QWidget>

namespace vantel::scene {

/// Whether the focus came for the keys' sake. The ring is for people who walk with them; after a click it
/// would only be a frame around what was clicked. The window of a card is never active unless it was asked to
/// be.
bool isKeyboardFocus(Qt::FocusReason reason);

/// Draws the ring just inside the edges of a widget, with corners of that radius in logical pixels.
void drawFocusRing(QPainter& painter, const QWidget& widget, double radius);

} // namespace vantel::scene
