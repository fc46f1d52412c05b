#include "host/schedule/WidgetSchedule.h"
#include "tests/fakes/FakeFormats.h"
#include "tests/host/schedule/ScheduleFakes.h"
#include "tests/host/schedule/StubWidgets.h"
#include "tests/host/schedule/WindowThread.h"

#include <gtest/gtest.h>

namespace vantel {
namespace {

using namespace testing;

const WidgetKey small{"One", WidgetFamily::systemSmall};
const WidgetKey medium{"One", WidgetFamily::systemMedium};
const WidgetKey other{"Other", WidgetFamily::systemSmall};

class WidgetScheduleTest : public ::testing::Test {
protected:
    WidgetScheduleTest() {
        QObject::connect(&schedule, &WidgetSchedule::viewChanged,
                         [this](const WidgetKey& key) { changed.push_back(key); });
        QObject::connect(&schedule, &WidgetSchedule::settled, [this](const std::string&) { ++settled; });
        QObject::connect(&schedule, &WidgetSchedule::ticked, [this] { ++ticks; });
    }

    /// Places widgets of one kind and waits for their first views.
    void place(const std::set<WidgetKey>& keys) {
        schedule.setPlaced(keys);
        waitForAnswers(1);
        changed.clear();
    }

    /// Waits until that many more answers have been dealt with.
    void waitForAnswers(int count) {
        const int target = settled + count;
        ASSERT_TRUE(waitUntil([&] { return settled >= target; }));
    }

    /// Lets the pause after the last request pass.
    void pass(double seconds = 1) { clock.seconds += seconds; }

    void setMoments(std::vector<StubPlan::Moment> moments) {
        const std::scoped_lock lock(plan->mutex);
        plan->moments = std::move(moments);
    }

    std::string shown(const WidgetKey& key) const {
        const auto view = schedule.view(key);
        return view ? textOf(*view) : "";
    }

    std::shared_ptr<StubPlan> plan = std::make_shared<StubPlan>();
    std::shared_ptr<StubPlan> otherPlan = std::make_shared<StubPlan>();
    HandClock clock;
    HandAlarm alarm;
    PlainFormats formats;
    std::string zone = "UTC";
    WidgetSchedule schedule{
        {.widgets = {stubWidget("One", plan), stubWidget("Other", otherPlan)}, .intents = {}},
        {clock, alarm, formats, [this] { return *SystemCalendar::named(zone); },
         [this](const std::string&, Instant now) { return stubEntry(now, "no data", plan); }}};
    std::vector<WidgetKey> changed;
    int settled = 0;
    int ticks = 0;
};

TEST_F(WidgetScheduleTest, APlacedWidgetGetsItsViewWithoutWaitingInTheCall) {
    plan->moments = {{900, "one"}};
    schedule.setPlaced({small});
    EXPECT_FALSE(schedule.view(small));
    ASSERT_TRUE(waitUntil([this] { return !changed.empty(); }));
    EXPECT_EQ(changed, std::vector{small});
    EXPECT_EQ(shown(small), "one small UTC");
    EXPECT_FALSE(schedule.view(medium));
}

TEST_F(WidgetScheduleTest, TwoSizesOfAKindShareOneRequest) {
    place({small, medium});
    EXPECT_EQ(settled, 1);
    EXPECT_EQ(shown(small), "one small UTC");
    EXPECT_EQ(shown(medium), "one medium UTC");
}

TEST_F(WidgetScheduleTest, EachEntryIsShownWhenItsDateComes) {
    plan->moments = {{1000, "now"}, {1060, "soon"}, {1300, "later"}};
    place({small});
    EXPECT_EQ(alarm.seconds(), 1060);
    alarm.goOff(clock);
    EXPECT_EQ(shown(small), "soon small UTC");
    EXPECT_EQ(alarm.seconds(), 1300);
    alarm.goOff(clock);
    EXPECT_EQ(shown(small), "later small UTC");
    EXPECT_EQ(changed, (std::vector{small, small}));
    EXPECT_EQ(plan->requests, 1);
}

TEST_F(WidgetScheduleTest, AtTheReloadDateTheProviderIsAskedAgain) {
    plan->reloadDate = 5000;
    place({small});
    EXPECT_EQ(alarm.seconds(), 5000);
    setMoments({{5000, "tomorrow"}});
    alarm.goOff(clock);
    EXPECT_EQ(shown(small), "one small UTC");
    waitForAnswers(1);
    EXPECT_EQ(shown(small), "tomorrow small UTC");
}

TEST_F(WidgetScheduleTest, IdleMeansNoLookAtTheClockAndNoChangeOfTheAlarm) {
    plan->reloadDate = 5000;
    place({small, medium});
    const int reads = clock.reads;
    const int changes = alarm.changes;
    QThread::msleep(150);
    serveEvents();
    EXPECT_EQ(clock.reads, reads);
    EXPECT_EQ(alarm.changes, changes);
    EXPECT_EQ(alarm.seconds(), 5000);
    EXPECT_EQ(plan->requests, 2);
}

TEST_F(WidgetScheduleTest, WithNothingPlacedNoAlarmIsSet) {
    place({small});
    schedule.setPlaced({});
    EXPECT_FALSE(alarm.moment);
    EXPECT_FALSE(schedule.view(small));
    schedule.reloadAll();
    EXPECT_FALSE(alarm.moment);
    EXPECT_EQ(plan->requests, 1);
}

TEST_F(WidgetScheduleTest, AKindThatTheBundleLacksIsLeftOut) {
    const WidgetKey unknown{"Unknown", WidgetFamily::systemSmall};
    place({small, unknown});
    schedule.reload("Unknown");
    EXPECT_FALSE(schedule.view(unknown));
    EXPECT_EQ(shown(small), "one small UTC");
}

TEST_F(WidgetScheduleTest, AReloadBringsANewViewAndAnEqualOneChangesNothing) {
    place({small});
    pass();
    schedule.reload("One");
    waitForAnswers(1);
    EXPECT_TRUE(changed.empty());
    setMoments({{900, "two"}});
    pass();
    schedule.reload("One");
    waitForAnswers(1);
    EXPECT_EQ(changed, std::vector{small});
    EXPECT_EQ(shown(small), "two small UTC");
}

TEST_F(WidgetScheduleTest, AFloodOfReloadsIsOneRunningAndOneBehindIt) {
    place({small});
    pass();
    {
        const std::scoped_lock lock(plan->mutex);
        plan->gate.emplace();
    }
    const int reads = clock.reads;
    for (int call = 0; call < 10'000; ++call)
        schedule.reload("One");
    EXPECT_LE(clock.reads, reads + 2);
    ASSERT_TRUE(waitUntil([this] { return plan->requests == 2; }));
    pass();
    plan->gate->open();
    waitForAnswers(1);
    EXPECT_EQ(plan->requests, 3);
    EXPECT_EQ(plan->mostAtOnce, 1);
}

TEST_F(WidgetScheduleTest, AReloadSoonAfterAnotherStartsATenthOfASecondAfterIt) {
    place({small});
    schedule.reload("One");
    EXPECT_EQ(plan->requests, 1);
    EXPECT_EQ(alarm.seconds(), 1000.1);
    alarm.goOff(clock);
    waitForAnswers(1);
    EXPECT_EQ(plan->requests, 2);
}

TEST_F(WidgetScheduleTest, ItIsSettledOnlyWhenNoRequestIsLeft) {
    place({small});
    pass();
    schedule.reload("One");
    schedule.reload("One");
    pass();
    waitForAnswers(1);
    EXPECT_EQ(plan->requests, 3);
}

TEST_F(WidgetScheduleTest, AProviderThatBlocksKeepsWhatIsShownAndHoldsUpNoOther) {
    place({small});
    pass();
    const Gate gate;
    {
        const std::scoped_lock lock(plan->mutex);
        plan->gate = gate;
    }
    schedule.reload("One");
    schedule.setPlaced({small, other});
    ASSERT_TRUE(waitUntil([this] { return !shown(other).empty(); }));
    EXPECT_EQ(shown(small), "one small UTC");
    gate.open();
    waitForAnswers(1);
}

TEST_F(WidgetScheduleTest, AWidgetWithoutViewShowsItsStateWithoutDataAfterSomePatience) {
    const Gate gate;
    plan->gate = gate;
    schedule.setPlaced({small});
    EXPECT_FALSE(schedule.view(small));
    EXPECT_EQ(alarm.seconds(), 1000.5);
    alarm.goOff(clock);
    EXPECT_EQ(shown(small), "no data small UTC");
    EXPECT_FALSE(alarm.moment);
    gate.open();
    waitForAnswers(1);
    EXPECT_EQ(shown(small), "one small UTC");
    EXPECT_EQ(changed, (std::vector{small, small}));
}

TEST_F(WidgetScheduleTest, AClockThatIsSetBackEndsThePatience) {
    const Gate gate;
    plan->gate = gate;
    schedule.setPlaced({small});
    alarm.step(clock, 10);
    EXPECT_EQ(shown(small), "no data small UTC");
    gate.open();
    waitForAnswers(1);
}

TEST_F(WidgetScheduleTest, AFailedProviderKeepsTheViewsAndIsAskedAgainLater) {
    place({small});
    pass();
    {
        const std::scoped_lock lock(plan->mutex);
        plan->failure = "The count overflows.";
    }
    ::testing::internal::CaptureStderr();
    for (int round = 0; round < 3; ++round) {
        schedule.reload("One");
        waitForAnswers(1);
        pass();
    }
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "One has no timeline: The count overflows.\n");
    EXPECT_EQ(shown(small), "one small UTC");
    EXPECT_EQ(alarm.seconds(), 1003 + 900);
}

TEST_F(WidgetScheduleTest, AFailedFirstAnswerShowsTheStateWithoutDataAtOnce) {
    plan->failure = "The count overflows.";
    ::testing::internal::CaptureStderr();
    schedule.setPlaced({small});
    waitForAnswers(1);
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "One has no timeline: The count overflows.\n");
    EXPECT_EQ(shown(small), "no data small UTC");
}

TEST_F(WidgetScheduleTest, AViewThatCannotBeDrawnKeepsTheLastGoodOneAndIsTriedAndLoggedOnce) {
    for (const std::string broken : {"fatal", "bug"}) {
        schedule.setPlaced({});
        setMoments({{900, "good"}, {clock.seconds + 60, broken}, {clock.seconds + 70, "good again"}});
        pass();
        schedule.setPlaced({small});
        waitForAnswers(1);
        ::testing::internal::CaptureStderr();
        alarm.goOff(clock);
        const int views = plan->views;
        schedule.noteTick(instantFromReference(clock.seconds + 1));
        alarm.goOff(clock);
        EXPECT_EQ(plan->views, views);
        EXPECT_EQ(shown(small), "good small UTC");
        const std::string log = ::testing::internal::GetCapturedStderr();
        EXPECT_EQ(log, broken == "bug" ? "One cannot be drawn: no such row\n"
                                       : "One cannot be drawn: The text cannot be drawn.\n");
        alarm.goOff(clock);
        EXPECT_EQ(shown(small), "good again small UTC");
    }
}

TEST_F(WidgetScheduleTest, AFirstViewThatCannotBeDrawnShowsTheStateWithoutData) {
    plan->moments = {{900, "fatal"}};
    ::testing::internal::CaptureStderr();
    schedule.setPlaced({small});
    waitForAnswers(1);
    EXPECT_NE(::testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(shown(small), "no data small UTC");
}

TEST_F(WidgetScheduleTest, AClockThatMovesOnAtEveryLookPlansNothingThatIsOver) {
    clock.drift = 1e-6;
    plan->moments = {{900, "fatal"}};
    ::testing::internal::CaptureStderr();
    schedule.setPlaced({small, medium});
    waitForAnswers(1);
    EXPECT_NE(::testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(shown(small), "no data small UTC");
    EXPECT_EQ(shown(medium), "no data medium UTC");
    EXPECT_EQ(alarm.seconds(), 1e9);
}

TEST_F(WidgetScheduleTest, AViewThatStaysAsItIsEndsThePatienceOfNoOther) {
    plan->moments = {{900, "one"}, {1001.25, "one"}};
    place({small});
    pass();
    const Gate gate;
    {
        const std::scoped_lock lock(plan->mutex);
        plan->gate = gate;
    }
    schedule.setPlaced({small, medium});
    alarm.goOff(clock);
    EXPECT_EQ(clock.seconds, 1001.25);
    EXPECT_FALSE(schedule.view(medium));
    EXPECT_EQ(alarm.seconds(), 1001.5);
    gate.open();
    waitForAnswers(1);
    EXPECT_EQ(shown(medium), "one medium UTC");
}

TEST_F(WidgetScheduleTest, AStepOfTheClockShowsTheEntryOfThatMomentAndReloads) {
    plan->moments = {{1000, "now"}, {2000, "later"}};
    place({small});
    alarm.step(clock, 3000);
    EXPECT_EQ(shown(small), "later small UTC");
    alarm.step(clock, 10);
    EXPECT_EQ(shown(small), "now small UTC");
    waitForAnswers(1);
    EXPECT_GE(plan->requests, 2);
}

TEST_F(WidgetScheduleTest, AnotherZoneDrawsTheViewsAnewAndReloads) {
    place({small});
    pass();
    zone = "Europe/Berlin";
    schedule.applyZoneChange();
    EXPECT_EQ(shown(small), "one small Europe/Berlin");
    EXPECT_EQ(changed, std::vector{small});
    waitForAnswers(1);
    EXPECT_EQ(plan->requests, 2);
}

TEST_F(WidgetScheduleTest, ATickCountsOnceAndDrawsNoView) {
    plan->reloadDate = 5000;
    place({small});
    const int views = plan->views;
    schedule.noteTick(instantFromReference(1030));
    EXPECT_EQ(alarm.seconds(), 1030);
    alarm.goOff(clock);
    EXPECT_EQ(ticks, 1);
    EXPECT_EQ(alarm.seconds(), 5000);
    EXPECT_EQ(plan->views, views);
}

TEST_F(WidgetScheduleTest, ATickThatIsTakenBackIsNone) {
    plan->reloadDate = 5000;
    place({small});
    schedule.noteTick(instantFromReference(1030));
    schedule.noteTick(std::nullopt);
    EXPECT_EQ(alarm.seconds(), 5000);
}

TEST_F(WidgetScheduleTest, ASlotMayCallBack) {
    QObject::connect(&schedule, &WidgetSchedule::viewChanged, [this](const WidgetKey& key) {
        if (key == small)
            schedule.setPlaced({other});
    });
    schedule.setPlaced({small, medium});
    ASSERT_TRUE(waitUntil([this] { return !shown(other).empty(); }));
    EXPECT_FALSE(schedule.view(small));
    EXPECT_FALSE(schedule.view(medium));
}

TEST_F(WidgetScheduleTest, AWidgetThatWasTakenAwayComesBackWithoutASecondRequestAtOnce) {
    const Gate gate;
    plan->gate = gate;
    schedule.setPlaced({small});
    ASSERT_TRUE(waitUntil([this] { return plan->requests == 1; }));
    schedule.setPlaced({});
    pass();
    schedule.setPlaced({small});
    pass();
    gate.open();
    waitForAnswers(1);
    EXPECT_EQ(plan->requests, 2);
    EXPECT_EQ(plan->mostAtOnce, 1);
    EXPECT_EQ(shown(small), "one small UTC");
}

} // namespace
} // namespace vantel
