#pragma once

#include "host/desk/Monitor.h"

#include <QPoint>
#include <QRect>
#include <QSize>
#include <optional>
#include <vector>

namespace vantel {

struct WidgetBundle;

/// Where cards stand, as pure geometry. Rectangles are cards, without their shadows, in logical pixels of the
/// whole desktop.

/// The distance between cards, and between a card and the edge of the screen, at a scale.
int cardGap(double scale);

/// The part of a card in its leading upper corner where it says what it is.
QSize titleSize(double scale);

/// A widget that shall stand somewhere.
struct WantedWidget {
    std::string kind;
    WidgetFamily family;

    bool operator==(const WantedWidget&) const = default;
};

/// Widgets side by side.
using WidgetRow = std::vector<WantedWidget>;

/// What a first start would show: every kind once, in rows that are all equally wide. A kind is medium if it
/// can be; one that is only ever small shares its row with the kind before it, where that can be small too.
std::vector<WidgetRow> firstRows(const WidgetBundle& bundle);

/// A widget and the place of its card.
struct WidgetSpot {
    WantedWidget widget;
    QRect card;

    bool operator==(const WidgetSpot&) const = default;
};

/// What a first start shows, in the order of the bundle: the first rows from the top right of the area down,
/// and on in a further column to the left where the area ends. Where they find no room, as many of the last
/// are small as it takes, and then they stand closer. On a screen that is too small even so, they lie over
/// each other in steps that leave their titles visible, whichever lies above; and where even steps find no
/// room, as `freeSpot` has it.
std::vector<WidgetSpot> firstArrangement(const WidgetBundle& bundle, const QRect& area, double scale);

/// The first free place for a card from the right, and there from the top, that keeps a distance to all
/// others and to the edges of the area.
std::optional<QPoint> spotWithGap(QSize card, const std::vector<QRect>& taken, const QRect& area, int gap);

/// A place for one more card: the first free one from the right, and there from the top, that keeps the
/// distance to all others; closer to them where it is tight. Where there is none, the first that leaves
/// all titles visible, whichever card lies above; else those of the others, if this card does; and where even
/// that is nowhere, the top right corner, one gap further in for each card that starts there already.
QPoint freeSpot(QSize card, const std::vector<QRect>& taken, const QRect& area, double scale);

/// The place nearest to where a card is wanted that is free, inside the area, and at the distance of cards
/// from the others; closer to them where it is tight. Absent where no place is free.
std::optional<QPoint> freeSpotNear(const QRect& wanted, const std::vector<QRect>& taken, const QRect& area,
                                   double scale);

/// Where a card goes that is dragged to `wanted`: to the edges and gaps of its neighbours and of the area if
/// they are near, else to a grid; always wholly inside the area.
QPoint snapped(const QRect& wanted, const std::vector<QRect>& neighbours, const QRect& area, double scale);

/// The corner of its screen that a card is nearest to.
Corner nearestCorner(const QRect& card, const QRect& screen);

/// How far a card is from a corner of its screen.
Margins marginsFrom(Corner corner, const QRect& card, const QRect& screen);

/// The place of a card on a screen: as the placement says, moved as little as it takes to be on the screen.
QPoint positionOf(const Placement& placement, QSize card, const QRect& screen);

/// Moved as little as it takes to lie inside; to the top left where it is too large.
QPoint clamped(const QRect& card, const QRect& area);

} // namespace vantel
