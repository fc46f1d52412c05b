#include "host/surface/LayerMenu.h"

#include <gtest/gtest.h>

namespace vantel {

namespace {

constexpr QSize menu(160, 200);
constexpr QRect screen(1000, 100, 800, 600);

TEST(LayerMenu, OpensBelowAndRightOfItsPlace) {
    EXPECT_EQ(menuPosition({1100, 200}, menu, screen), QPoint(1100, 200));
}

TEST(LayerMenu, OpensOnTheOtherSideWhereThereIsNoRoom) {
    EXPECT_EQ(menuPosition({1700, 200}, menu, screen), QPoint(1540, 200));
    EXPECT_EQ(menuPosition({1100, 650}, menu, screen), QPoint(1100, 450));
    EXPECT_EQ(menuPosition({1640, 500}, menu, screen), QPoint(1640, 500));
    EXPECT_EQ(menuPosition({1641, 501}, menu, screen), QPoint(1481, 301));
}

TEST(LayerMenu, StaysOnASmallScreen) {
    EXPECT_EQ(menuPosition({1080, 150}, menu, {1000, 100, 170, 210}), QPoint(1000, 100));
    EXPECT_EQ(menuPosition({1050, 150}, menu, {1000, 100, 90, 90}), QPoint(1000, 100));
}

} // namespace

} // namespace vantel
