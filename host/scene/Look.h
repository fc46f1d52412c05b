#pragma once

#include "hosting/Appearance.h"
#include "hosting/WidgetFamily.h"

#include <QSizeF>
#include <QString>

namespace vantel {

enum class Motion { full, reduced };

/// Everything about the desktop that decides how a card is drawn, apart from the view itself.
struct Look {
    Appearance appearance = Appearance::aqua();
    double scale = 1; ///< the desktop's font scale; a card grows as a whole
    Motion motion = Motion::full;
    QString standardFamily = {};   ///< the desktop's font; empty: the application's
    QString monospacedFamily = {}; ///< its fixed font; empty: the system's

    bool operator==(const Look&) const = default;
};

/// The size of a card in logical pixels: 170 x 170 points, 364 x 170, 364 x 382, times the scale.
QSizeF cardSize(WidgetFamily family, double scale);

inline constexpr double cardCornerRadius = 22; ///< points
inline constexpr double contentMargin = 16;    ///< points

} // namespace vantel
