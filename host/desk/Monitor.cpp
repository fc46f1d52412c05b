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

bool isSameConnector(const MonitorIdentity& wanted, const MonitorIdentity& found) {
    return wanted.name == found.name && (!saysMake(wanted) || !saysMake(found));
}

/// What the X server of a Wayland session calls its monitors where it knows nothing of them.
bool isNumbered(const MonitorIdentity& identity) {
    return !saysMake(identity) && identity.name.starts_with("XWAYLAND");
}

bool wasPlacedElsewhere(const MonitorIdentity& wanted, const std::vector<Monitor>& monitors) {
    const bool areNumbered =
        std::ranges::any_of(monitors, [](const Monitor& each) { return isNumbered(each.identity); });
    return isNumbered(wanted) != areNumbered;
}

} // namespace

const Monitor* monitorOf(const Placement& placement, const std::vector<Monitor>& monitors,
                         const Placements& all) {
    const auto exact = std::ranges::find(monitors, placement.monitor, &Monitor::identity);
    if (exact != monitors.end())
        return &*exact;
    const auto find = [&](const auto& isMeant) {
        const auto found = std::ranges::find_if(monitors, isMeant, &Monitor::identity);
        return found != monitors.end() ? &*found : nullptr;
    };
    if (const Monitor* moved = find(
            [&](const MonitorIdentity& identity) { return isMovedTo(placement.monitor, identity, all); }))
        return moved;
    if (const Monitor* same = find(
            [&](const MonitorIdentity& identity) { return isSameConnector(placement.monitor, identity); }))
        return same;
    return !monitors.empty() && wasPlacedElsewhere(placement.monitor, monitors) ? &monitors.front() : nullptr;
}

} // namespace vantel
