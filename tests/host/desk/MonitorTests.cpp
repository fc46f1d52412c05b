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
    const Monitor* monitor = monitorOf(all.front(), monitors, all, {});
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
        {"only another name", nameOnly, {otherName}, {}, otherName},
        {"only another name that others belong to", nameOnly, {otherName}, {otherName}, std::nullopt},
        {"only one that is no nameless one", nameOnly, {laptop}, {}, std::nullopt},
        {"not the only one", nameOnly, {laptop, otherName}, {}, std::nullopt},
        {"a named one does not come back as a nameless one", external, {otherName}, {}, std::nullopt},
        {"placed where makes were unknown", externalByName, {laptop, external}, {}, external},
        {"placed where makes were known", external, {nameOnly, externalByName}, {}, externalByName},
        {"another make on the same connector", external, {twinLeft}, {}, std::nullopt},
        {"placed where monitors were numbered", numbered, {laptop, external}, {}, laptop},
        {"placed where monitors were not numbered", external, {numbered, numberedNext}, {}, numbered},
        {"another number, and nothing else", numberedNext, {numbered}, {}, numbered},
        {"another number that others belong to", numberedNext, {numbered}, {numbered}, std::nullopt},
        {"numbered, and nothing connected", numbered, {}, {}, std::nullopt},
    };
    for (const MonitorCase& row : cases)
        EXPECT_EQ(found(row), row.expected) << row.title;
}

Monitor nameless(const char* name, const QRect& geometry) {
    return {{"", "", "", name}, geometry, geometry};
}

TEST(MonitorOf, ANamelessOneIsKnownByItsFrame) {
    const QRect left(0, 0, 1920, 1080);
    const QRect right(1920, 0, 1920, 1080);
    const std::vector<Monitor> renamed{nameless("B-1", left), nameless("B-2", right)};
    for (const auto& [frame, name] : {std::pair(left, "B-1"), std::pair(right, "B-2")}) {
        const Monitor before = nameless("A", frame);
        const Placements all{Placement{.monitor = before.identity, .frame = frameOf(before)}};
        const Monitor* found = monitorOf(all.front(), renamed, all, {});
        ASSERT_NE(found, nullptr) << name;
        EXPECT_EQ(found->identity.name, name);
    }
}

TEST(MonitorOf, ANamelessOneIsNotMistakenForOneThatItWasSeenBeside) {
    const Placements all{Placement{.monitor = nameOnly}};
    const std::vector<Monitor> left{{otherName, QRect(0, 0, 800, 600), {}}};
    EXPECT_EQ(monitorOf(all.front(), left, all, {{nameOnly, otherName}}), nullptr);
    EXPECT_NE(monitorOf(all.front(), left, all, {{nameOnly, laptop}, {otherName, laptop}}), nullptr);
}

} // namespace

} // namespace vantel
