#include "host/surface/WholePixels.h"

#include <gtest/gtest.h>

namespace vantel {

namespace {

TEST(WholePixels, ASizeGrowsToTheNextMultipleOfFour) {
    EXPECT_EQ(inWholePixels({217, 220}), QSize(220, 220));
    EXPECT_EQ(inWholePixels({218, 221}), QSize(220, 224));
    EXPECT_EQ(inWholePixels({219, 412}), QSize(220, 412));
}

TEST(WholePixels, NothingStaysNothing) {
    EXPECT_EQ(inWholePixels({0, 0}), QSize(0, 0));
}

} // namespace

} // namespace vantel
