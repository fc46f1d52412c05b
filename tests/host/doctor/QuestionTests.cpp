#include "host/doctor/Question.h"

#include <memory>

#include <gtest/gtest.h>

namespace vantel {
namespace {

using std::chrono::steady_clock;

TEST(Question, IsAnsweredByWhatWasFoundInTime) {
    Question<int> question([] { return 42; });
    EXPECT_EQ(question.answerBy(steady_clock::now() + std::chrono::hours(1)), 42);
}

TEST(Question, IsNotWaitedForAfterTheDeadline) {
    const auto gate = std::make_shared<std::promise<void>>();
    Question<int> question([gate] {
        gate->get_future().wait();
        return 42;
    });
    EXPECT_FALSE(question.answerBy(steady_clock::now()));
    gate->set_value();
}

} // namespace
} // namespace vantel
