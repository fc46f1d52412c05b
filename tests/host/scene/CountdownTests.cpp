#include "host/scene/Countdown.h"

#include <array>
#include <limits>
#include <vector>

#include <gtest/gtest.h>

namespace vantel::scene {

namespace {

std::optional<double> tick(std::vector<double> ends, double now) {
    std::vector<Instant> countdowns;
    for (const double end : ends)
        countdowns.push_back(instantFromReference(end));
    const auto next = nextTick(countdowns, instantFromReference(now));
    return next ? std::optional(secondsSinceReference(*next)) : std::nullopt;
}

struct Row {
    std::vector<double> ends;
    double now;
    std::optional<double> next;
};

TEST(Countdown, TicksAtTheMinutesBeforeTheEndAndInTheLastMinuteAtTheSeconds) {
    const Row rows[] = {
        {{1000}, 400, 460},      // 10 minutes are left, until there are 9
        {{1000}, 399.5, 400},    // "11 min" for half a second more
        {{1000}, 401, 460},      //
        {{1000}, 879, 880},      //
        {{1000}, 880, 940},      // 2 minutes
        {{1000}, 940, 941},      // the last minute counts seconds
        {{1000}, 939.9, 940},    //
        {{1000}, 998.5, 999},    //
        {{1000}, 999, 1000},     //
        {{1000}, 999.5, 1000},   //
        {{1000}, 1000, {}},      // over
        {{1000}, 1001, {}},      //
        {{}, 0, {}},             // nothing counts down
        {{1000, 400}, 390, 391}, // the earliest of several
        {{1000, 100}, 400, 460}, // one of which is over
    };
    for (const Row& row : rows)
        EXPECT_EQ(tick(row.ends, row.now), row.next) << row.now;
}

TEST(Countdown, TheNextTickIsAlwaysLaterThanNow) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    constexpr std::array ends = {1e9 + 0.1, 1e12,      1e15,
                                 1e16,      1e17,      1e300,
                                 infinity,  -infinity, std::numeric_limits<double>::quiet_NaN()};
    for (const double end : ends)
        for (const double now : {0.0, 8e8 + 1 / 3.0, -1e300})
            EXPECT_GT(tick({end}, now).value_or(infinity), now) << end;
}

} // namespace

} // namespace vantel::scene
