#include "host/surface/OutputProbe.h"

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

TEST(WithoutPanels, IsTheScreenWhereThereAreNone) {
    EXPECT_EQ(withoutPanels({100, 50, 1280, 720}, {1280, 720}), QRect(100, 50, 1280, 720));
}

TEST(WithoutPanels, KeepsAwayFromBothSidesWhereOneMayBe) {
    EXPECT_EQ(withoutPanels({100, 50, 1280, 720}, {1280, 680}), QRect(100, 90, 1280, 640));
    EXPECT_EQ(withoutPanels({100, 50, 1280, 720}, {1220, 720}), QRect(160, 50, 1160, 720));
}

TEST(WithoutPanels, IsTheScreenWhereNothingWouldBeLeft) {
    EXPECT_EQ(withoutPanels({0, 0, 1280, 720}, {1280, 360}), QRect(0, 0, 1280, 720));
    EXPECT_EQ(withoutPanels({0, 0, 1280, 720}, {0, 0}), QRect(0, 0, 1280, 720));
}

TEST(WithoutPanels, IsTheScreenWhereMoreIsToldThanThereIs) {
    EXPECT_EQ(withoutPanels({0, 0, 640, 360}, {1280, 720}), QRect(0, 0, 640, 360));
}

} // namespace

} // namespace vantel
