#pragma once

#include "host/scene/Scene.h"

class QPainter;

namespace vantel::scene {

/// What is under way on a card while it is drawn.
struct PaintState {
    std::vector<std::size_t> pendingRows; ///< whose actions have been pressed and not yet answered
};

/// The colour of a look's primary text: ink on light, white on dark, stronger at high contrast.
ResolvedColor primaryColor(const Look& look);

QColor painted(const Color& color, const Look& look);

/// Draws a card in points at the painter's origin: its background with round corners, then all pieces. The
/// painter's scale decides how large a point is. At high contrast texts and symbols that are translucent are
/// as opaque as it takes to be read with ease.
void paint(QPainter& painter, const Scene& scene, const Look& look, const PaintState& state = {});

} // namespace vantel::scene
