#pragma once

#include "host/scene/Look.h"
#include "hosting/Element.h"

#include <QFont>
#include <algorithm>

namespace vantel::scene {

/// How high a line of text stands, in points.
struct LineMetrics {
    double ascent;
    double descent;
    double pitch; ///< from one baseline to the next

    bool operator==(const LineMetrics&) const = default;

    double height(std::size_t lines = 1) const {
        return ascent + descent + pitch * static_cast<double>(std::max<std::size_t>(lines, 1) - 1);
    }
};

/// The font that a text is laid out with, many times larger than it is drawn: the toolkit rounds every font
/// to whole pixels, and 9.5 points are not 10. Texts of all sizes are laid out equally large, since each
/// further size of a font costs the toolkit a search among all fonts of the machine.
struct SceneFont {
    QFont font;
    double pixelsPerPoint;
};

/// The font of a style at a fraction of its size, without hinting, so that a text is as wide on every screen.
SceneFont sceneFont(const TextStyle& style, const Look& look, double fraction = 1);

/// The line of a font, in points; at most 1.25 times its size, so that a font with tall accents cannot burst
/// a card. Lines of large letters stand closer together.
LineMetrics lineMetrics(const SceneFont& font, double size);

} // namespace vantel::scene
