#include "host/doctor/Finding.h"

#include <gtest/gtest.h>

namespace vantel {
namespace {

const Finding good{Verdict::ok, "good"};
const Finding poor{Verdict::warn, "poor"};
const Finding bad{Verdict::fail, "bad"};

TEST(Finding, IsPrintedAsOneLineThatBeginsWithItsVerdict) {
    EXPECT_EQ(printed({good, poor, bad}), "ok    good\nwarn  poor\nfail  bad\n");
}

TEST(Finding, OnlyWhatStandsInTheWayIsAFailure) {
    EXPECT_EQ(exitStatus({}), 0);
    EXPECT_EQ(exitStatus({good, poor, poor}), 0);
    EXPECT_EQ(exitStatus({good, bad, poor}), 1);
}

} // namespace
} // namespace vantel
