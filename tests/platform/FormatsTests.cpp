#include "platform/Formats.h"

#include <gtest/gtest.h>

namespace vantel {
namespace {

TEST(Filled, PutsArgumentsInThePlacesOfTheMarksInOrder) {
    EXPECT_EQ(filled("%lld of %lld done", {"2", "5"}), "2 of 5 done");
    EXPECT_EQ(filled("%s at %s", {"Lab", "10:25"}), "Lab at 10:25");
    EXPECT_EQ(filled("%s: %lld", {"Open", "3"}), "Open: 3");
    EXPECT_EQ(filled("%lld: %s", {"3", "open"}), "3: open");
    EXPECT_EQ(filled("%lld%s", {"3", "x"}), "3x");
}

TEST(Filled, PatternsWithoutMarksStay) {
    EXPECT_EQ(filled("All clear", {}), "All clear");
    EXPECT_EQ(filled("", {"unused"}), "");
    EXPECT_EQ(filled("100 % sure, %d, %l, %", {"unused"}), "100 % sure, %d, %l, %");
}

TEST(Filled, MarksInsideAnArgumentMeanNothing) {
    EXPECT_EQ(filled("%s and %s", {"%s", "%lld"}), "%s and %lld");
    EXPECT_EQ(filled("%lld", {"%lld %s"}), "%lld %s");
}

TEST(Filled, MarksWithoutAnArgumentStandAndArgumentsWithoutAMarkFall) {
    EXPECT_EQ(filled("%s and %s", {"one"}), "one and %s");
    EXPECT_EQ(filled("%s", {"one", "two"}), "one");
}

TEST(Filled, TakesTextOfAnyLengthAndContent) {
    const std::string large(1'000'000, 'x');
    EXPECT_EQ(filled("<%s>", {large}), "<" + large + ">");
    EXPECT_EQ(filled("<%s>", {std::string_view("\0", 1)}), std::string("<\0>", 3));
}

} // namespace
} // namespace vantel
