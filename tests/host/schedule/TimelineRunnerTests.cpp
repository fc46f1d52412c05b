#include "host/schedule/TimelineRunner.h"
#include "tests/host/schedule/NoThreads.h"
#include "tests/host/schedule/StubWidgets.h"
#include "tests/host/schedule/WindowThread.h"

#include <gtest/gtest.h>

namespace vantel {
namespace {

using namespace testing;

const TimelineRequest both{{WidgetFamily::systemSmall, WidgetFamily::systemMedium},
                           instantFromReference(100),
                           SystemCalendar(cctz::utc_time_zone())};

class TimelineRunnerTest : public ::testing::Test {
protected:
    TimelineRunnerTest() {
        QObject::connect(&*runner, &TimelineRunner::answered, [this](const TimelineAnswer& answer) {
            EXPECT_EQ(QThread::currentThread(), QCoreApplication::instance()->thread());
            answers.push_back(answer);
        });
    }

    std::shared_ptr<StubPlan> plan = std::make_shared<StubPlan>();
    std::shared_ptr<StubPlan> otherPlan = std::make_shared<StubPlan>();
    std::vector<TimelineAnswer> answers;
    std::optional<TimelineRunner> runner{std::in_place};
};

TEST_F(TimelineRunnerTest, AnswersWithATimelineForEachFamilyOnTheWindowThread) {
    runner->ask(stubWidget("One", plan), both);
    EXPECT_TRUE(answers.empty());
    ASSERT_TRUE(waitUntil([this] { return !answers.empty(); }));
    EXPECT_EQ(answers[0].kind, "One");
    ASSERT_TRUE(answers[0].timelines);
    EXPECT_EQ(answers[0].timelines->size(), 2U);
    EXPECT_EQ(plan->requests, 2);
}

TEST_F(TimelineRunnerTest, AProviderThatBlocksHoldsUpItsOwnKindOnly) {
    plan->gate.emplace();
    runner->ask(stubWidget("Blocked", plan), both);
    runner->ask(stubWidget("Free", otherPlan), both);
    ASSERT_TRUE(waitUntil([this] { return !answers.empty(); }));
    EXPECT_EQ(answers[0].kind, "Free");
    plan->gate->open();
    ASSERT_TRUE(waitUntil([this] { return answers.size() == 2; }));
    EXPECT_EQ(answers[1].kind, "Blocked");
}

TEST_F(TimelineRunnerTest, TheEndOfTheRunnerWaitsForNoProviderAndALateAnswerGoesNowhere) {
    plan->gate.emplace();
    runner->ask(stubWidget("Blocked", plan), both);
    ASSERT_TRUE(waitUntil([this] { return plan->requests > 0; }));
    runner.reset();
    plan->gate->open();
    ASSERT_TRUE(waitUntil([this] { return plan->requests == 2 && plan->atOnce == 0; }));
    serveEvents();
    EXPECT_TRUE(answers.empty());
}

TEST_F(TimelineRunnerTest, AFatalErrorOfTheProviderComesBackAsItsSentence) {
    plan->failure = "The count overflows.";
    runner->ask(stubWidget("One", plan), both);
    ASSERT_TRUE(waitUntil([this] { return !answers.empty(); }));
    ASSERT_FALSE(answers[0].timelines);
    EXPECT_EQ(answers[0].timelines.error(), "The count overflows.");
}

TEST_F(TimelineRunnerTest, ARequestThatGetsNoThreadIsAnsweredLaterAndTheNextOneIsServed) {
    {
        const NoThreads none;
        runner->ask(stubWidget("One", plan), both);
    }
    EXPECT_TRUE(answers.empty());
    ASSERT_TRUE(waitUntil([this] { return answers.size() == 1; }));
    ASSERT_FALSE(answers[0].timelines);
    EXPECT_EQ(answers[0].timelines.error(), noThreadReason);
    runner->ask(stubWidget("One", plan), both);
    ASSERT_TRUE(waitUntil([this] { return answers.size() == 2; }));
    EXPECT_TRUE(answers[1].timelines);
}

TEST(Timelines, AnyOtherExceptionOfAProviderIsContainedToo) {
    StaticConfiguration configuration = stubWidget("One", std::make_shared<StubPlan>());
    configuration.getTimeline = [](const TimelineProviderContext&) -> Timeline<TimelineEntry> {
        throw std::out_of_range("no such row");
    };
    EXPECT_EQ(timelines(configuration, both).timelines.error(), "no such row");
}

} // namespace
} // namespace vantel
