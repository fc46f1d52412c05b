#pragma once

#include "host/desk/Placements.h"

#include <QRect>
#include <vector>

class QScreen;

namespace vantel {

/// One connected monitor, in logical pixels.
struct Monitor {
    MonitorIdentity identity;
    QRect geometry;  ///< all of it
    QRect available; ///< without panels
    QScreen* screen = nullptr;

    bool operator==(const Monitor&) const = default;
};

/// The monitor that a placement belongs to, or null while it is away.
///
/// It is the one of the same identity; else the one of the same manufacturer, model and serial number on
/// another connector. One without a serial number is recognised on another connector only if no placement
/// belongs to the monitor there: so two equal ones side by side are not mistaken for each other.
///
/// A user may go from a session that knows its monitors to one that does not, such as the X server of a
/// Wayland session: then it is the one on the same connector; else, where monitors are only numbered, the
/// first.
const Monitor* monitorOf(const Placement& placement, const std::vector<Monitor>& monitors,
                         const Placements& all);

} // namespace vantel
