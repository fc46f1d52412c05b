#pragma once

#include <QWidget>

namespace vantel::scene {

/// Whether there is a ring after the focus has come to a widget, which may have been asked for one before.
/// The ring is for people who walk with keys; after a click it would only be a frame around what was clicked.
/// A window or a menu that comes or goes changes nothing.
bool hasRingAfterFocusIn(bool hadRing, Qt::FocusReason reason);

/// The same, after the focus has gone. It comes back from a menu.
bool hasRingAfterFocusOut(bool hadRing, Qt::FocusReason reason);

/// Draws the ring just inside the edges of a widget, with corners of that radius in logical pixels.
void drawFocusRing(QPainter& painter, const QWidget& widget, double radius);

} // namespace vantel::scene
