#include "host/desk/Monitor.h"

#include <algorithm>

namespace vantel {

namespace {

bool areSameMake(const MonitorIdentity& a, const MonitorIdentity& b) {
    return a.manufacturer == b.manufacturer && a.model == b.model && a.serial == b.serial;
}

bool saysMake(const MonitorIdentity& identity) {
    return !identity.manufacturer.empty() || !identity.model.empty();
}

bool isClaimed(const MonitorIdentity& identity, const Placements& all) {
    return std::ranges::any_of(all, [&](const Placement& each) { return each.monitor == identity; });
}

bool isMovedTo(const MonitorIdentity& wanted, const MonitorIdentity& found, const Placements& all) {
    if (!areSameMake(wanted, found))
        return false;
    return !wanted.serial.empty() || (saysMake(wanted) && !isClaimed(found, all));
}

} // namespace

const Monitor* monitorOf(const Placement& placement, const std::vector<Monitor>& monitors,
                         const Placements& all) {
    const auto exact = std::ranges::find(monitors, placement.monitor, &Monitor::identity);
    if (exact != monitors.end())
        return &*exact;
    const auto moved = std::ranges::find_if(monitors, [&](const Monitor& monitor) {
        return isMovedTo(placement.monitor, monitor.identity, all);
    });
    return moved != monitors.end() ? &*moved : nullptr;
}

} // namespace vantel
