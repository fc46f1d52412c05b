#include "host/schedule/WakeTimer.h"
#include "platform/Clock.h"
#include "tests/host/schedule/WindowThread.h"

#include <cerrno>
#include <cstring>
#include <ctime>
#include <limits>

#include <gtest/gtest.h>

namespace vantel {
namespace {

using namespace testing;

class WakeTimerTest : public ::testing::Test {
protected:
    WakeTimerTest() {
        QObject::connect(&timer, &Alarm::reached, [this] { ++reached; });
    }

    WakeTimer timer;
    SystemClock clock;
    int reached = 0;
};

TEST(TimerNanoseconds, AreThoseSince1970RoundedUpAndZeroForNever) {
    struct Row {
        double seconds;
        std::int64_t nanoseconds;
    };
    constexpr double infinity = std::numeric_limits<double>::infinity();
    for (const Row& row : std::vector<Row>{{0, 978'307'200'000'000'000},
                                           {1.5, 978'307'201'500'000'000},
                                           {-978'307'200, 1},
                                           {-978'307'201, 1},
                                           {-1e300, 1},
                                           {-infinity, 1},
                                           {6'279'811'200, 7'258'118'400'000'000'000},
                                           {6'279'811'201, 0},
                                           {1e300, 0},
                                           {infinity, 0},
                                           {std::numeric_limits<double>::quiet_NaN(), 0}})
        EXPECT_EQ(timerNanoseconds(instantFromReference(row.seconds)), row.nanoseconds) << row.seconds;
}

TEST_F(WakeTimerTest, AMomentInThePastIsReachedAtOnceButNotInsideTheCall) {
    timer.wakeAt(clock.now() - Seconds(3600));
    EXPECT_EQ(reached, 0);
    EXPECT_TRUE(waitUntil([this] { return reached == 1; }));
}

TEST_F(WakeTimerTest, AMomentToComeIsReachedOnceAndNotBefore) {
    const Instant moment = clock.now() + Seconds(0.05);
    timer.wakeAt(moment);
    ASSERT_TRUE(waitUntil([this] { return reached > 0; }));
    EXPECT_GE(clock.now(), moment);
    serveEvents();
    EXPECT_EQ(reached, 1);
}

TEST_F(WakeTimerTest, TheSameMomentCanBeReachedAgainOnceItWasReached) {
    const Instant moment = clock.now();
    timer.wakeAt(moment);
    ASSERT_TRUE(waitUntil([this] { return reached == 1; }));
    timer.wakeAt(moment);
    EXPECT_TRUE(waitUntil([this] { return reached == 2; }));
}

TEST_F(WakeTimerTest, AMomentThatIsTakenBackOrFarAwayIsNotReached) {
    for (const std::optional<Instant>& instead :
         {std::optional<Instant>(), std::optional(instantFromReference(1e300))}) {
        timer.wakeAt(clock.now() + Seconds(0.02));
        timer.wakeAt(instead);
        QThread::msleep(40);
        serveEvents();
        EXPECT_EQ(reached, 0);
    }
}

/// Sets the machine's clock to the time that it shows, which for timers is a step like any other. Why that is
/// not possible; empty where it was.
std::string stepClock() {
    timespec now{};
    if (::clock_gettime(CLOCK_REALTIME, &now) == 0 && ::clock_settime(CLOCK_REALTIME, &now) == 0)
        return {};
    return std::string("the clock cannot be set here: ") + std::strerror(errno);
}

class ClockStepTest : public WakeTimerTest {
protected:
    ClockStepTest() {
        QObject::connect(&timer, &Alarm::clockStepped, [this] { ++steps; });
    }

    void SetUp() override {
        if (const std::string why = stepClock(); !why.empty())
            GTEST_SKIP() << why;
        ASSERT_TRUE(waitUntil([this] { return steps == 1; })) << "nothing was set, and the step is not heard";
        steps = 0;
    }

    int steps = 0;
};

TEST_F(ClockStepTest, IsHeardOnceAndTakesBackTheMoment) {
    for (int round = 1; round <= 3; ++round) {
        timer.wakeAt(clock.now() + Seconds(3600));
        ASSERT_EQ(stepClock(), "");
        ASSERT_TRUE(waitUntil([&] { return steps == round; }));
        serveEvents();
        EXPECT_EQ(steps, round);
    }
    EXPECT_EQ(reached, 0);
}

TEST_F(ClockStepTest, LeavesATimerThatCanBeSetAgain) {
    timer.wakeAt(clock.now() + Seconds(3600));
    ASSERT_EQ(stepClock(), "");
    ASSERT_TRUE(waitUntil([this] { return steps == 1; }));
    timer.wakeAt(clock.now() + Seconds(0.02));
    EXPECT_TRUE(waitUntil([this] { return reached == 1; }));
}

TEST_F(ClockStepTest, IsHeardAlsoWhereTheTimerIsSetBeforeAnybodyLooked) {
    timer.wakeAt(clock.now() + Seconds(3600));
    ASSERT_EQ(stepClock(), "");
    timer.wakeAt(clock.now() + Seconds(7200));
    EXPECT_EQ(steps, 0);
    EXPECT_TRUE(waitUntil([this] { return steps > 0; }));
}

} // namespace
} // namespace vantel
