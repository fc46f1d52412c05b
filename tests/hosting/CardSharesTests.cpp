#include "hosting/card/Shares.h"

#include <numeric>
#include <random>

#include <gmock/gmock.h>

namespace vantel::card {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(CardShares, EachGetsWhatItWantsWhenThereIsEnough) {
    EXPECT_THAT(fairShares({3, 1, 2}, 6), ElementsAre(3, 1, 2));
    EXPECT_THAT(fairShares({3, 1, 2}, 60), ElementsAre(3, 1, 2));
    EXPECT_THAT(fairShares({}, 10), IsEmpty());
}

TEST(CardShares, ThoseWhoWantLittleGetItAndTheRestIsDivided) {
    EXPECT_THAT(fairShares({100, 3, 5}, 20), ElementsAre(12, 3, 5));
    EXPECT_THAT(fairShares({100, 3, 100}, 21), ElementsAre(9, 3, 9));
    EXPECT_THAT(fairShares({100, 100}, 7), ElementsAre(3, 4));
}

TEST(CardShares, NothingIsDividedWhenNothingIsThere) {
    EXPECT_THAT(fairShares({3, 1}, 0), ElementsAre(0, 0));
    EXPECT_THAT(fairShares({3, 1}, -5), ElementsAre(0, 0));
}

TEST(CardShares, NoMoreThanWhatIsThereIsEverDivided) {
    std::mt19937 random(3);
    for (int round = 0; round < 1000; ++round) {
        std::vector<int> wanted(random() % 8);
        for (int& want : wanted)
            want = static_cast<int>(random() % 30);
        const int available = static_cast<int>(random() % 60);
        const auto shares = fairShares(wanted, available);
        const int sum = std::accumulate(shares.begin(), shares.end(), 0);
        EXPECT_EQ(sum, std::min(available, std::accumulate(wanted.begin(), wanted.end(), 0)));
    }
}

TEST(CardShares, ARestGoesEvenlyToThoseThatGrow) {
    std::vector<int> lengths = {1, 1, 1, 1};
    addEvenly(lengths, {1, 3}, 5);
    EXPECT_THAT(lengths, ElementsAre(1, 3, 1, 4));
    addEvenly(lengths, {}, 5);
    addEvenly(lengths, {0}, -5);
    EXPECT_THAT(lengths, ElementsAre(1, 3, 1, 4));
}

} // namespace
} // namespace vantel::card
