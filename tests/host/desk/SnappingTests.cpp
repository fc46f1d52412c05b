#include "host/desk/Arrangement.h"

#include <gtest/gtest.h>

namespace vantel {

namespace {

const QRect area(0, 30, 1000, 700);
const std::vector<QRect> neighbours{QRect(500, 300, 170, 170)};

struct SnapCase {
    const char* title;
    QPoint wanted;
    QPoint expected;
};

TEST(Snapped, GoesToWhatIsNear) {
    const SnapCase cases[] = {
        {"the grid, away from everything", {101, 88}, {104, 86}},
        {"the area's edge with a gap", {30, 60}, {24, 54}},
        {"the area's far edge with a gap", {800, 530}, {806, 536}},
        {"the gap above the neighbour", {505, 108}, {500, 106}},
        {"the gap right of the neighbour", {700, 305}, {694, 300}},
        {"the gap left of the neighbour", {300, 290}, {306, 300}},
        {"the gap below the neighbour", {490, 500}, {500, 494}},
        {"just near enough", {512, 300}, {500, 300}},
        {"just too far, so the grid", {513, 300}, {512, 300}},
    };
    for (const auto& [title, wanted, expected] : cases)
        EXPECT_EQ(snapped(QRect(wanted, QSize(170, 170)), neighbours, area, 1), expected)
            << title << ": " << snapped(QRect(wanted, QSize(170, 170)), neighbours, area, 1).x() << ", "
            << snapped(QRect(wanted, QSize(170, 170)), neighbours, area, 1).y();
}

TEST(Snapped, NeverLeavesTheArea) {
    for (const QPoint wanted : {QPoint(-500, -500), QPoint(2000, 2000), QPoint(-500, 2000)}) {
        const QPoint place = snapped(QRect(wanted, QSize(364, 170)), {}, area, 1);
        EXPECT_TRUE(area.contains(QRect(place, QSize(364, 170)))) << place.x() << ", " << place.y();
    }
}

TEST(Snapped, AGapToANeighbourDoesNotLeadOffTheScreen) {
    const std::vector<QRect> atTheEdge{QRect(806, 300, 170, 170)};
    EXPECT_EQ(snapped(QRect(1000, 300, 170, 170), atTheEdge, area, 1), QPoint(806, 300));
}

} // namespace

} // namespace vantel
