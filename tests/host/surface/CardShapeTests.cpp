#include "host/surface/CardShape.h"

#include <gtest/gtest.h>

namespace vantel {

namespace {

TEST(RoundedRegion, HoldsNoPixelThatTheCornerCuts) {
    const QRegion region = roundedRegion(QRect(10, 20, 170, 170), 22);
    EXPECT_EQ(region.boundingRect(), QRect(10, 20, 170, 170));
    EXPECT_FALSE(region.contains(QPoint(31, 20)));
    EXPECT_TRUE(region.contains(QPoint(32, 20)));
    EXPECT_FALSE(region.contains(QPoint(15, 26)));
    EXPECT_TRUE(region.contains(QPoint(18, 28)));
    EXPECT_TRUE(region.contains(QPoint(10, 100)));
    EXPECT_TRUE(region.contains(QPoint(95, 21)));
}

TEST(RoundedRegion, IsTheSameFromEverySide) {
    const QRegion region = roundedRegion(QRect(0, 0, 100, 60), 22.5);
    for (int y = 0; y < 60; ++y)
        for (int x = 0; x < 100; ++x) {
            EXPECT_EQ(region.contains(QPoint(x, y)), region.contains(QPoint(99 - x, y)));
            EXPECT_EQ(region.contains(QPoint(x, y)), region.contains(QPoint(x, 59 - y)));
        }
}

TEST(RoundedRegion, WithoutARadiusIsTheRectangle) {
    EXPECT_EQ(roundedRegion(QRect(3, 4, 50, 60), 0), QRegion(3, 4, 50, 60));
}

TEST(InsideOf, HasCornersAsFineAsTheScreenIs) {
    const CardShape shape{QRect(24, 24, 170, 170), 22};
    EXPECT_EQ(insideOf(shape, 1), roundedRegion(QRect(24, 24, 170, 170), 22));
    EXPECT_EQ(insideOf(shape, 2), roundedRegion(QRect(48, 48, 340, 340), 44));
    EXPECT_EQ(insideOf(shape, 1.25), roundedRegion(QRect(30, 30, 213, 213), 27.5));
}

} // namespace

} // namespace vantel
