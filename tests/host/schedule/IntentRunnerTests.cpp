#include "host/schedule/IntentRunner.h"
#include "platform/FatalError.h"
#include "tests/fakes/FakeFormats.h"
#include "tests/fakes/SequentialUuids.h"
#include "tests/host/schedule/Gate.h"
#include "tests/host/schedule/NoThreads.h"
#include "tests/host/schedule/WindowThread.h"

#include <gtest/gtest.h>

namespace vantel {
namespace {

using namespace testing;
using namespace std::chrono_literals;

constexpr auto patience = 10s;

IntentCall call(const std::string& name, const std::string& task) {
    return {name, {{"todoID", task}}};
}

/// What the intents have done, shared with the worker thread.
struct Doings {
    std::mutex mutex;
    std::vector<std::string> tasks;
};

class IntentRunnerTest : public ::testing::Test {
protected:
    IntentRunnerTest() {
        QObject::connect(&*runner, &IntentRunner::ended,
                         [this](const IntentOutcome& outcome) { outcomes.push_back(outcome); });
    }

    IntentDeclaration declaration(const std::string& name, const std::function<Result<void>()>& act) const {
        return {name, "Complete task", false, [act, doings = doings](const IntentCall& each, const auto&) {
                    const Result<void> result = act();
                    const std::scoped_lock lock(doings->mutex);
                    doings->tasks.push_back(each.parameter("todoID").value_or("none"));
                    return result;
                }};
    }

    WidgetBundle bundle() const {
        const auto blocked = [waiting = gate]() -> Result<void> {
            waiting.wait();
            return {};
        };
        const auto fatal = []() -> Result<void> { fatalError("The count overflows"); };
        return {.widgets = {},
                .intents = {
                    declaration("Complete", [] { return Result<void>(); }),
                    declaration("Fail", []() -> Result<void> { return std::unexpected(fileWriteUnknown()); }),
                    declaration("Block", blocked), declaration("Fatal", fatal)}};
    }

    /// The tasks of the intents that have run, sorted.
    std::vector<std::string> done() const {
        const std::scoped_lock lock(doings->mutex);
        std::vector<std::string> tasks = doings->tasks;
        std::ranges::sort(tasks);
        return tasks;
    }

    IntentOutcome outcomeOf(const IntentCall& wanted) const {
        const auto found = std::ranges::find(outcomes, wanted, &IntentOutcome::call);
        return found == outcomes.end() ? IntentOutcome{"", wanted, "has not ended"} : *found;
    }

    std::shared_ptr<Doings> doings = std::make_shared<Doings>();
    Gate gate;
    PlainFormats formats;
    std::optional<IntentRunner> runner{
        std::in_place, bundle(),
        IntentSurroundings{std::make_shared<FixedClock>(Instant{}), std::make_shared<SequentialUuids>()},
        formats};
    std::vector<IntentOutcome> outcomes;
};

TEST_F(IntentRunnerTest, EachPressRunsOnce) {
    runner->run("One", call("Complete", "a"));
    runner->run("Two", call("Complete", "b"));
    runner->run("One", call("Complete", "c"));
    EXPECT_TRUE(outcomes.empty());
    ASSERT_TRUE(waitUntil([this] { return outcomes.size() == 3; }));
    EXPECT_EQ(done(), (std::vector<std::string>{"a", "b", "c"}));
    EXPECT_EQ(outcomeOf(call("Complete", "b")).kind, "Two");
    EXPECT_TRUE(outcomeOf(call("Complete", "b")).hasSucceeded());
}

TEST_F(IntentRunnerTest, ASecondPressOfAButtonOnItsWayIsPassedOverAndALaterOneCounts) {
    runner->run("One", call("Block", "a"));
    runner->run("One", call("Block", "a"));
    runner->run("Two", call("Block", "a"));
    EXPECT_TRUE(runner->isPending(call("Block", "a")));
    EXPECT_FALSE(runner->isPending(call("Complete", "a")));
    gate.open();
    ASSERT_TRUE(waitUntil([this] { return outcomes.size() == 1; }));
    EXPECT_EQ(outcomes[0].kind, "One");
    EXPECT_FALSE(runner->isPending(call("Block", "a")));
    runner->run("One", call("Block", "a"));
    ASSERT_TRUE(waitUntil([this] { return outcomes.size() == 2; }));
    EXPECT_EQ(done(), (std::vector<std::string>{"a", "a"}));
}

TEST_F(IntentRunnerTest, AFailureIsSaidInASentence) {
    for (const std::string name : {"Fail", "Fatal", "Unknown"})
        runner->run("One", call(name, "a"));
    ASSERT_TRUE(waitUntil([this] { return outcomes.size() == 3; }));
    EXPECT_EQ(outcomeOf(call("Fail", "a")).failure,
              "“Complete task” did not work: " + message(fileWriteUnknown()) + ".");
    EXPECT_EQ(outcomeOf(call("Fatal", "a")).failure, "“Complete task” did not work: The count overflows.");
    EXPECT_EQ(outcomeOf(call("Unknown", "a")).failure, "“Unknown” did not work: no widget declares Unknown.");
    EXPECT_FALSE(outcomeOf(call("Unknown", "a")).hasSucceeded());
}

TEST_F(IntentRunnerTest, APressThatGetsNoThreadFailsInASentenceAndCanBeRepeated) {
    {
        const NoThreads none;
        runner->run("One", call("Complete", "a"));
    }
    EXPECT_TRUE(outcomes.empty());
    EXPECT_TRUE(runner->isPending(call("Complete", "a")));
    ASSERT_TRUE(waitUntil([this] { return outcomes.size() == 1; }));
    EXPECT_EQ(outcomes[0].failure,
              "“Complete task” did not work: the system gives the program no thread for it.");
    runner->run("One", call("Complete", "a"));
    ASSERT_TRUE(waitUntil([this] { return outcomes.size() == 2; }));
    EXPECT_TRUE(outcomes[1].hasSucceeded());
    EXPECT_EQ(done(), std::vector<std::string>{"a"});
}

TEST_F(IntentRunnerTest, DrainingHandsOutTheOutcomesOfAllThatEnded) {
    for (const std::string task : {"a", "b", "c"})
        runner->run("One", call("Complete", task));
    EXPECT_TRUE(runner->drain(patience));
    EXPECT_EQ(outcomes.size(), 3U);
    EXPECT_EQ(done().size(), 3U);
}

TEST_F(IntentRunnerTest, ALockHeldElsewhereHoldsUpNoOtherPress) {
    runner->run("One", call("Block", "a"));
    runner->run("One", call("Complete", "b"));
    runner->run("One", call("Complete", "c"));
    ASSERT_TRUE(waitUntil([this] { return outcomes.size() == 2; }));
    EXPECT_EQ(done(), (std::vector<std::string>{"b", "c"}));
    EXPECT_TRUE(outcomeOf(call("Complete", "c")).hasSucceeded());
    EXPECT_TRUE(runner->isPending(call("Block", "a")));
    gate.open();
    EXPECT_TRUE(runner->drain(patience));
    EXPECT_EQ(outcomes.size(), 3U);
}

TEST_F(IntentRunnerTest, ALockHeldElsewhereEndsTheWaitAndItsPressIsNotAcknowledged) {
    runner->run("One", call("Block", "a"));
    runner->run("One", call("Complete", "b"));
    ASSERT_TRUE(waitUntil([this] { return outcomes.size() == 1; }));
    EXPECT_FALSE(runner->drain(20ms));
    EXPECT_EQ(outcomes.size(), 1U);
    runner.reset();
    gate.open();
    ASSERT_TRUE(waitUntil([this] { return done().size() == 2; }));
    serveEvents();
    EXPECT_EQ(outcomes.size(), 1U);
}

} // namespace
} // namespace vantel
