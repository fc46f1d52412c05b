#include "host/surface/OutputDescriptions.h"

#include <gtest/gtest.h>

namespace vantel {

namespace {

TEST(OutputSerial, StandsBetweenTheMakeAndTheConnector) {
    EXPECT_EQ(outputSerial("Dell Inc. DELL U2415 7MT0186418CU (DP-1)", "Dell Inc.", "DELL U2415", "DP-1"),
              "7MT0186418CU");
}

TEST(OutputSerial, MayHaveSpacesAndBrackets) {
    EXPECT_EQ(outputSerial("Acme X 12 (b) (DP-1)", "Acme", "X", "DP-1"), "12 (b)");
}

TEST(OutputSerial, IsFoundBeforeAWayToTheConnector) {
    EXPECT_EQ(outputSerial("Acme X 12 (DP-1 via HDMI)", "Acme", "X", "DP-1"), "12");
}

TEST(OutputSerial, IsEmptyWhereTheSentenceNamesNone) {
    EXPECT_EQ(outputSerial("Acme X (DP-1)", "Acme", "X", "DP-1"), "");
    EXPECT_EQ(outputSerial("Headless output 1", "headless", "headless", "HEADLESS-1"), "");
    EXPECT_EQ(outputSerial("", "Acme", "X", "DP-1"), "");
}

TEST(OutputSerial, IsEmptyWhereTheSentenceIsAboutAnotherOutput) {
    EXPECT_EQ(outputSerial("Acme X 12 (DP-2)", "Acme", "X", "DP-1"), "");
    EXPECT_EQ(outputSerial("Other X 12 (DP-1)", "Acme", "X", "DP-1"), "");
    EXPECT_EQ(outputSerial("Acme XY 12 (DP-1)", "Acme", "X", "DP-1"), "");
}

} // namespace

} // namespace vantel
