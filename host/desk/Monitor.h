#pragma once

#include "host/desk/Placements.h"

#include <QRect>
#include <set>
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

/// Which monitors were connected together, as far as the program has seen.
using MonitorSets = std::set<std::set<MonitorIdentity>>;

/// The frame of a monitor, as placements remember it.
MonitorFrame frameOf(const Monitor& monitor);

/// Whether a monitor says nothing of itself, so that all that is known is its connector.
bool isNameless(const MonitorIdentity& identity);

/// The monitor that a placement belongs to, or null while it is away.
///
/// It is the one of the same identity; else the one of the same manufacturer, model and serial number on
/// another connector. One without a serial number is recognised on another connector only if no placement
/// belongs to the monitor there: so two equal ones side by side are not mistaken for each other.
///
/// A user may go from a session that knows its monitors to one that does not, such as the X server of a
/// Wayland session: then it is the one on the same connector; else, where monitors are only numbered, the
/// first.
///
/// A nameless one is looked for among nameless ones that no placement belongs to: it is the one in the frame
/// that the placement remembers; else, since connectors get other names with other drivers and docks, the
/// only monitor there is, unless the two were seen together. Better on a wrong monitor than hidden for ever.
const Monitor* monitorOf(const Placement& placement, const std::vector<Monitor>& monitors,
                         const Placements& all, const MonitorSets& seen);

} // namespace vantel
