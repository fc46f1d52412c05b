#include "platform/CheckedMath.h"

#include <limits>

#include <gtest/gtest.h>

namespace vantel {
namespace {

constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t smallest = std::numeric_limits<std::int64_t>::min();

TEST(TruncatedToInteger, DropsTheFractionTowardsZero) {
    EXPECT_EQ(truncatedToInteger(3.0), 3);
    EXPECT_EQ(truncatedToInteger(3.99), 3);
    EXPECT_EQ(truncatedToInteger(-3.99), -3);
    EXPECT_EQ(truncatedToInteger(-0.5), 0);
    EXPECT_EQ(truncatedToInteger(0x1p53), 9'007'199'254'740'992);
}

TEST(TruncatedToInteger, ReachesFromTheSmallestIntegerToTheLastDoubleBeforeTheBound) {
    EXPECT_EQ(truncatedToInteger(-0x1p63), smallest);
    EXPECT_EQ(truncatedToInteger(std::nextafter(0x1p63, 0.0)), largest - 1023);
    EXPECT_FALSE(truncatedToInteger(0x1p63));
    EXPECT_FALSE(truncatedToInteger(std::nextafter(-0x1p63, -1e300)));
}

TEST(TruncatedToInteger, HasNoAnswerForWhatIsNotFinite) {
    EXPECT_FALSE(truncatedToInteger(1e300));
    EXPECT_FALSE(truncatedToInteger(std::numeric_limits<double>::infinity()));
    EXPECT_FALSE(truncatedToInteger(-std::numeric_limits<double>::infinity()));
    EXPECT_FALSE(truncatedToInteger(std::numeric_limits<double>::quiet_NaN()));
}

TEST(CheckedSum, IsTheSumOrNothing) {
    EXPECT_EQ(checkedSum<std::int64_t>(2, -5), -3);
    EXPECT_EQ(checkedSum(largest, std::int64_t{0}), largest);
    EXPECT_EQ(checkedSum(largest, smallest), -1);
    EXPECT_FALSE(checkedSum(largest, std::int64_t{1}));
    EXPECT_FALSE(checkedSum(smallest, std::int64_t{-1}));
}

} // namespace
} // namespace vantel
