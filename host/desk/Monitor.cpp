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
    if (isNameless(placement.monitor))
        return replacementOf(placement, monitors, all, seen);
    const auto moved = std::ranges::find_if(monitors, [&](const Monitor& monitor) {
        return isMovedTo(placement.monitor, monitor.identity, all);
    });
    return moved != monitors.end() ? &*moved : nullptr;
}

} // namespace vantel
