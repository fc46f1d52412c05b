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

bool wereTogether(const MonitorIdentity& a, const MonitorIdentity& b, const MonitorSets& seen) {
    return std::ranges::any_of(
        seen, [&](const std::set<MonitorIdentity>& each) { return each.contains(a) && each.contains(b); });
}

const Monitor* replacementOf(const Placement& placement, const std::vector<Monitor>& monitors,
                             const Placements& all, const MonitorSets& seen) {
    const auto canStandIn = [&](const Monitor& each) {
        return isNameless(each.identity) && !isClaimed(each.identity, all);
    };
    const auto inPlace = std::ranges::find_if(monitors, [&](const Monitor& each) {
        return canStandIn(each) && frameOf(each) == placement.frame && placement.frame != MonitorFrame();
    });
    if (inPlace != monitors.end())
        return &*inPlace;
    const bool isOnly = monitors.size() == 1 && canStandIn(monitors.front()) &&
                        !wereTogether(placement.monitor, monitors.front().identity, seen);
    return isOnly ? &monitors.front() : nullptr;
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

MonitorFrame frameOf(const Monitor& monitor) {
    const QRect& place = monitor.geometry;
    return {place.x(), place.y(), place.width(), place.height()};
}

bool isNameless(const MonitorIdentity& identity) {
    return !saysMake(identity) && identity.serial.empty();
}

const Monitor* monitorOf(const Placement& placement, const std::vector<Monitor>& monitors,
                         const Placements& all, const MonitorSets& seen) {
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
    if (!monitors.empty() && wasPlacedElsewhere(placement.monitor, monitors))
        return &monitors.front();
    return isNameless(placement.monitor) ? replacementOf(placement, monitors, all, seen) : nullptr;
}

} // namespace vantel
