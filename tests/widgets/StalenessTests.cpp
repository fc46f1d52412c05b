#include "platform/FatalError.h"
#include "tests/widgets/WidgetFixture.h"
#include "widgets/Staleness.h"

#include <gtest/gtest.h>

namespace vantel {
namespace {

using namespace testing;
using Kind = Staleness::Kind;

Staleness ofAge(double seconds) {
    const Instant generated = at("2026-11-17T09:00");
    return {emptySnapshot(generated), generated + Seconds(seconds)};
}

TEST(Staleness, FollowsTheWholeHoursOfAge) {
    struct Row {
        double seconds;
        Kind kind;
        std::int64_t hours;
    };
    const std::vector<Row> rows = {
        {0, Kind::fresh, 0},
        {5 * 3600 + 59 * 60, Kind::fresh, 0},
        {6 * 3600 - 0.001, Kind::fresh, 0},
        {6 * 3600, Kind::aging, 6},
        {7 * 3600 - 1, Kind::aging, 6},
        {7 * 3600, Kind::aging, 7},
        {47 * 3600 + 59 * 60, Kind::aging, 47},
        {48 * 3600 - 0.001, Kind::aging, 47},
        {48 * 3600, Kind::stale, 0},
        {1e9, Kind::stale, 0},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(ofAge(row.seconds).kind, row.kind) << row.seconds;
        EXPECT_EQ(ofAge(row.seconds).hours, row.hours) << row.seconds;
    }
}

TEST(Staleness, ASnapshotFromTheFutureIsFresh) {
    EXPECT_EQ(ofAge(-1).kind, Kind::fresh);
    EXPECT_EQ(ofAge(-1e12).kind, Kind::fresh);
}

TEST(Staleness, AnAgeThatIsNoNumberOfHoursIsAFatalError) {
    EXPECT_THROW(ofAge(1e300), FatalError);
    EXPECT_THROW(ofAge(-1e300), FatalError);
    EXPECT_THROW(ofAge(std::numeric_limits<double>::infinity()), FatalError);
    EXPECT_THROW(ofAge(std::numeric_limits<double>::quiet_NaN()), FatalError);
}

} // namespace
} // namespace vantel
