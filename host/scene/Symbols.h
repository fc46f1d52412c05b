#pragma once

#include "hosting/Element.h"

#include <QColor>
#include <QRectF>

class QPainter;

namespace vantel::scene {

/// Draws a symbol of this system in one colour. In the hierarchical rendering its lesser parts are paler,
/// else all is drawn alike. A name that there is no symbol for draws nothing.
void drawSymbol(QPainter& painter, std::string_view name, const QRectF& rectangle, const QColor& color,
                SymbolRendering rendering);

/// A disc with a check mark in it: the circle of a task that has been pressed.
void drawFilledCircle(QPainter& painter, const QRectF& rectangle, const QColor& disc, const QColor& check);

} // namespace vantel::scene
