#include "host/desk/Monitor.h"

#include <gtest/gtest.h>

namespace vantel {

namespace {

const MonitorIdentity laptop{"Acme", "Panel", "", "eDP-1"};
const MonitorIdentity external{"Acme", "M27", "7", "DP-1"};
const MonitorIdentity externalElsewhere{"Acme", "M27", "7", "DP-3"};
const MonitorIdentity otherSerial{"Acme", "M27", "8", "DP-1"};
const MonitorIdentity twinLeft{"Plain", "Twin", "", "DP-1"};
const MonitorIdentity twinRight{"Plain", "Twin", "", "DP-2"};
const MonitorIdentity nameOnly{"", "", "", "Virtual-1"};
const MonitorIdentity otherName{"", "", "", "Virtual-2"};

const MonitorIdentity externalByName{"", "", "", "DP-1"};
const MonitorIdentity numbered{"", "", "", "XWAYLAND0"};
const MonitorIdentity numberedNext{"", "", "", "XWAYLAND1"};

struct MonitorCase {
    const char* title;
    MonitorIdentity wanted;
    std::vector<MonitorIdentity> connected;
    std::vector<MonitorIdentity> otherPlacements;
    std::optional<MonitorIdentity> expected;
};

std::optional<MonitorIdentity> found(const MonitorCase& row) {
    std::vector<Monitor> monitors;
    for (const MonitorIdentity& identity : row.connected)
        monitors.push_back({identity, {}, {}});
    Placements all{Placement{.monitor = row.wanted}};
    for (const MonitorIdentity& identity : row.otherPlacements)
        all.push_back(Placement{.monitor = identity});
    const Monitor* monitor = monitorOf(all.front(), monitors, all);
    return monitor != nullptr ? std::optional(monitor->identity) : std::nullopt;
}

TEST(MonitorOf, FindsTheMonitorThatIsMeant) {
    const MonitorCase cases[] = {
        {"the same", external, {laptop, external}, {}, external},
        {"away", external, {laptop}, {}, std::nullopt},
        {"nothing connected", external, {}, {}, std::nullopt},
        {"on another connector", external, {laptop, externalElsewhere}, {}, externalElsewhere},
        {"another of the same model", external, {otherSerial}, {}, std::nullopt},
        {"twins are told apart by name", twinRight, {twinLeft, twinRight}, {}, twinRight},
        {"a twin does not stand in for one that is away", twinRight, {twinLeft}, {twinLeft}, std::nullopt},
        {"no serial, moved", twinRight, {twinLeft}, {laptop}, twinLeft},
        {"only a name", nameOnly, {nameOnly}, {}, nameOnly},
        {"only another name", nameOnly, {otherName}, {}, std::nullopt},
        {"placed where makes were unknown", externalByName, {laptop, external}, {}, external},
        {"placed where makes were known", external, {nameOnly, externalByName}, {}, externalByName},
        {"another make on the same connector", external, {twinLeft}, {}, std::nullopt},
        {"placed where monitors were numbered", numbered, {laptop, external}, {}, laptop},
        {"placed where monitors were not numbered", external, {numbered, numberedNext}, {}, numbered},
        {"another number", numberedNext, {numbered}, {}, std::nullopt},
        {"numbered, and nothing connected", numbered, {}, {}, std::nullopt},
    };
    for (const MonitorCase& row : cases)
        EXPECT_EQ(found(row), row.expected) << row.title;
}

} // namespace

} // namespace vantel
