#include "platform/FatalError.h"
#include "tests/widgets/WidgetFixture.h"
#include "widgets/CompleteTodoIntent.h"
#include "widgets/WTokens.h"
#include "widgets/WidgetLinks.h"
#include "widgets/focus/FocusRules.h"
#include "widgets/focus/FocusWidget.h"
#include "widgets/focus/RecapColumn.h"

#include <gtest/gtest.h>

namespace vantel {
namespace {

using namespace testing;
using Lines = std::vector<std::string>;

const Instant tuesday = at("2026-11-17T09:20");
const Instant friday = at("2026-11-20T15:30");

WidgetTask done(std::string id, Instant completedAt) {
    WidgetTask result = task(std::move(id), std::nullopt);
    result.completedAt = completedAt;
    return result;
}

WidgetSnapshot snapshotWith(std::vector<WidgetTask> tasks) {
    WidgetSnapshot snapshot = emptySnapshot(tuesday);
    snapshot.tasks = std::move(tasks);
    return snapshot;
}

Element viewOf(const WidgetSnapshot& snapshot, const ViewContext& context, Instant now = tuesday) {
    return focusWidgetView(entry(snapshot, now), context).content;
}

const WidgetTask lateA = task("a", at("2026-11-14T12:00"));
const WidgetTask lateB = task("b", at("2026-11-16T18:00"));
const WidgetTask lateC = task("c", at("2026-11-16T19:00"));
const WidgetTask dueD = task("d", at("2026-11-17T11:00"));
const WidgetTask dueE = task("e", at("2026-11-17T17:00"));
const WidgetTask dueF = task("f", at("2026-11-17T18:00"));
const WidgetTask dueG = task("g", at("2026-11-17T19:00"));
const WidgetTask dueH = task("h", at("2026-11-17T20:00"));
const WidgetTask later = task("l", at("2026-11-19T09:00"));

TEST(FocusWidget, WithoutASnapshotEverySizeShowsTheSetupState) {
    for (const ViewContext& context : {small(), medium()}) {
        const WidgetContent content = focusWidgetView({tuesday, nullptr}, context);
        EXPECT_EQ(texts(content.content), (Lines{"Halvo", "Open the app once to fill this widget."}));
        EXPECT_EQ(content.widgetURL, WidgetLinks::focus());
        EXPECT_EQ(content.background, WTokens::windowBg);
    }
}

TEST(FocusWidget, TheSetupStateHasItsSizesAndColours) {
    const Element setup = focusWidgetView({tuesday, nullptr}, small()).content;
    const Text title = textNamed(setup, "Halvo");
    EXPECT_EQ(title.style.font, (Font{14, FontWeight::medium}));
    EXPECT_EQ(title.style.color, Color(PrimaryColor{}));
    const Text hint = textNamed(setup, "Open the app once to fill this widget.");
    EXPECT_EQ(hint.style.font, Font{11});
    EXPECT_EQ(hint.style.color, Color(WTokens::textSecondary));
}

TEST(FocusWidget, TwoOverdueAndOneDueTodayAreThreeDueAndTwoOverdue) {
    EXPECT_EQ(texts(viewOf(snapshotWith({lateA, lateB, dueD}), small())),
              (Lines{"FOCUS", "3", "due", "2", "overdue"}));
}

TEST(FocusWidget, OnlyTasksDueTodayShowNoOverdueBlock) {
    EXPECT_EQ(texts(viewOf(snapshotWith({dueD, dueE}), small())), (Lines{"FOCUS", "2", "due"}));
}

TEST(FocusWidget, NothingDueShowsAllClearAndWhatIsDueNext) {
    EXPECT_EQ(texts(viewOf(snapshotWith({later}), small())),
              (Lines{"All clear", "Next due: Task l", "Thu 19"}));
    EXPECT_EQ(texts(viewOf(snapshotWith({later}), medium())),
              (Lines{"FOCUS", "0", "due", "All clear", "Next due: Task l", "Thu 19"}));
}

TEST(FocusWidget, NothingDueAndNoDeadlinesShowsAllClearAlone) {
    EXPECT_EQ(texts(viewOf(snapshotWith({task("x", std::nullopt)}), small())), Lines{"All clear"});
}

TEST(FocusWidget, TheAllClearStateHasItsSymbolAndSizes) {
    const Element view = viewOf(snapshotWith({later}), small());
    const Symbol symbol = all<Symbol>(view).at(0);
    EXPECT_EQ(symbol.name, "checkmark");
    EXPECT_EQ(symbol.size, 22);
    EXPECT_EQ(symbol.rendering, SymbolRendering::hierarchical);
    EXPECT_EQ(textNamed(view, "All clear").style.font, (Font{12.5, FontWeight::semibold}));
    for (const char* line : {"Next due: Task l", "Thu 19"}) {
        EXPECT_EQ(textNamed(view, line).style.font, Font{10});
        EXPECT_EQ(textNamed(view, line).style.color, Color(WTokens::textSecondary));
    }
}

TEST(FocusWidget, TheDueStateHasItsSizesAndColours) {
    const Element view = viewOf(snapshotWith({lateA, dueD, dueE}), small());
    EXPECT_EQ(textNamed(view, "FOCUS").style.color, Color(PrimaryColor{0.42}));
    EXPECT_EQ(textNamed(view, "3").style.font, (Font{34, FontWeight::bold}));
    EXPECT_EQ(textNamed(view, "3").style.tracking, -0.5);
    EXPECT_EQ(textNamed(view, "due").style.font, Font{11});
    EXPECT_EQ(textNamed(view, "due").style.color, Color(WTokens::textSecondary));
    EXPECT_EQ(textNamed(view, "1").style.font, (Font{20, FontWeight::bold}));
    EXPECT_EQ(textNamed(view, "1").style.color, Color(WTokens::priHighText));
    EXPECT_EQ(textNamed(view, "overdue").style.font, Font{11});
    EXPECT_EQ(textNamed(view, "overdue").style.color, Color(WTokens::priHighText));
    for (const std::size_t countRow : {0U, 1U, 2U})
        EXPECT_EQ(all<Row>(view).at(countRow).alignment, VerticalAlignment::firstTextBaseline);
}

TEST(FocusWidget, ASizeThatIsNotDeclaredIsDrawnAsSmall) {
    const WidgetSnapshot snapshot = snapshotWith({lateA, dueD});
    ViewContext large = small();
    large.family = WidgetFamily::systemLarge;
    EXPECT_EQ(viewOf(snapshot, large), viewOf(snapshot, small()));
}

TEST(FocusWidget, TheFooterTellsWhatWaitsAndWhatIsDone) {
    const auto footer = [](std::int64_t triage, std::int64_t done) {
        return focusFooterText(triage, done, plainFormats());
    };
    EXPECT_EQ(footer(0, 0), std::nullopt);
    EXPECT_EQ(footer(-5, -1), std::nullopt);
    EXPECT_EQ(footer(5, 0), "5 to triage");
    EXPECT_EQ(footer(0, 1), "1 done");
    EXPECT_EQ(footer(-1, 1), "1 done");
    EXPECT_EQ(footer(2, 3), "2 to triage · 3 done");
    EXPECT_EQ(footer(std::numeric_limits<std::int64_t>::max(), 1), "9223372036854775807 to triage · 1 done");
}

TEST(FocusWidget, TheFooterIsLeftOutWhenItHasNothingToTell) {
    WidgetSnapshot snapshot = snapshotWith({dueD});
    EXPECT_TRUE(all<Rule>(viewOf(snapshot, small())).empty());
    snapshot.triageCount = 3;
    snapshot.tasks.push_back(done("x", at("2026-11-17T08:00")));
    EXPECT_EQ(texts(viewOf(snapshot, small())).back(), "3 to triage · 1 done");
}

TEST(FocusWidget, OfTasksDueNextAtOneMomentTheFirstInTheSnapshotIsShown) {
    const Instant moment = at("2026-11-19T09:00");
    WidgetTask second = task("second", moment);
    second.priorityScore = 1;
    const auto next =
        nextDue(snapshotWith({task("late", at("2026-11-20T09:00")), task("first", moment), second}), tuesday,
                berlin());
    ASSERT_TRUE(next);
    EXPECT_EQ(next->id, "first");
}

TEST(FocusWidget, NextDueLooksBeyondTodayOnly) {
    const auto next = [](std::vector<WidgetTask> tasks) {
        return nextDue(snapshotWith(std::move(tasks)), tuesday, berlin());
    };
    EXPECT_FALSE(next({}));
    EXPECT_FALSE(next({dueE, lateA, task("x", std::nullopt)}));
    EXPECT_FALSE(next({task("x", at("2026-11-17T23:59:59"))}));
    EXPECT_TRUE(next({task("x", at("2026-11-18T00:00"))}));
    WidgetTask completed = later;
    completed.completedAt = tuesday;
    EXPECT_FALSE(next({completed}));
}

TEST(FocusWidget, TheTaskColumnHoldsTwoOverdueAndFillsFourRowsWithToday) {
    struct Case {
        std::vector<WidgetTask> tasks;
        Lines summaries;
    };
    const std::vector<Case> cases = {
        {{lateA, lateB, lateC, dueD, dueE, dueF}, {"Task a", "Task b", "Task d", "Task e"}},
        {{lateA, dueD, dueE, dueF, dueG}, {"Task a", "Task d", "Task e", "Task f"}},
        {{dueD, dueE, dueF, dueG, dueH}, {"Task d", "Task e", "Task f", "Task g"}},
        {{lateA, lateB, lateC}, {"Task a", "Task b"}},
        {{lateC, lateB, dueE, dueD}, {"Task b", "Task c", "Task d", "Task e"}},
    };
    for (const Case& each : cases) {
        Lines summaries;
        for (const Link& link : all<Link>(viewOf(snapshotWith(each.tasks), medium())))
            summaries.push_back(std::get<Text>(link.label->kind).text);
        EXPECT_EQ(summaries, each.summaries);
    }
}

TEST(FocusWidget, ATaskRowCompletesOpensAndTellsItsDay) {
    const Element view = viewOf(snapshotWith({lateA, dueD}), medium());
    const auto buttons = all<Button>(view);
    ASSERT_EQ(buttons.size(), 2U);
    EXPECT_EQ(buttons[0].intent, CompleteTodoIntent("a", "acct").call());
    EXPECT_EQ(buttons[1].intent.parameter("todoID"), "d");
    const Symbol circle = std::get<Symbol>(buttons[0].label->kind);
    EXPECT_EQ(circle, (Symbol{"circle", 12, PrimaryColor{0.35}, SymbolRendering::hierarchical}));
    EXPECT_EQ(all<Link>(view)[0].url, WidgetLinks::todo("a"));
    EXPECT_EQ(texts(view), (Lines{"FOCUS", "2", "due", "1", "overdue", "Task a", "-3d", "Task d", "today"}));
}

TEST(FocusWidget, OverdueRowsAreDrawnWithEmphasis) {
    const Element view = viewOf(snapshotWith({lateA, dueD}), medium());
    const Text late = textNamed(view, "Task a");
    EXPECT_EQ(late.style.font, (Font{11, FontWeight::semibold}));
    EXPECT_EQ(late.style.color, Color(PrimaryColor{}));
    EXPECT_TRUE(late.style.invalidatable);
    const Text due = textNamed(view, "Task d");
    EXPECT_EQ(due.style.font, Font{11});
    EXPECT_EQ(due.style.color, Color(PrimaryColor{0.8}));
    EXPECT_EQ(textNamed(view, "-3d").style.color, Color(WTokens::priHighText));
    EXPECT_EQ(textNamed(view, "today").style.color, Color(PrimaryColor{0.4}));
    const auto bars = all<RoundedRectangle>(view);
    EXPECT_EQ(bars.at(0), (RoundedRectangle{2.5, 13, 2, WTokens::priHighFill}));
    EXPECT_EQ(bars.at(1).color, Color(WTokens::priMedFill));
}

TEST(FocusWidget, TheStatColumnHasItsSizes) {
    const Element view =
        viewOf(snapshotWith({lateA, dueD, done("x", tuesday), done("y", tuesday)}), medium());
    EXPECT_EQ(texts(view)[5], "2 done");
    const Text doneText = textNamed(view, "2 done");
    EXPECT_EQ(doneText.style.font, (Font{9, FontWeight::regular, FontDesign::monospaced}));
    const Element stat = std::get<Row>(view.kind).children.at(0);
    EXPECT_EQ(stat.padding, Padding::all(8));
    const Text due = all<Text>(stat).at(1);
    EXPECT_EQ(due.style.font, (Font{28, FontWeight::bold}));
    EXPECT_EQ(due.style.tracking, -0.4);
    EXPECT_EQ(all<Text>(stat).at(3).style.font, (Font{17, FontWeight::bold}));
    EXPECT_EQ(textNamed(stat, "due").style.font, Font{10});
    EXPECT_EQ(all<Row>(stat).at(0).spacing, 5);
    EXPECT_EQ(all<Row>(stat).at(1).spacing, 5);
}

TEST(FocusWidget, TheRecapTakesTheTaskListsPlaceFromFridayAfternoonOn) {
    WidgetSnapshot snapshot = snapshotWith({lateA, dueD});
    const auto hasRecap = [&](const char* moment) {
        return all<Button>(viewOf(snapshot, medium(), at(moment))).empty();
    };
    EXPECT_FALSE(hasRecap("2026-11-20T15:00"));
    snapshot.recap = WidgetRecap{412, 388, 37, 61, 29, 351};
    EXPECT_FALSE(hasRecap("2026-11-20T14:59:59"));
    EXPECT_TRUE(hasRecap("2026-11-20T15:00"));
    EXPECT_TRUE(hasRecap("2026-11-22T23:59:59"));
    EXPECT_FALSE(hasRecap("2026-11-23T00:00"));
}

TEST(FocusWidget, TheRecapTellsTheWeekInThreeRows) {
    WidgetSnapshot snapshot = emptySnapshot(friday);
    snapshot.recap = WidgetRecap{412, 388, 37, 61, 29, 351};
    const Element view = viewOf(snapshot, medium(), friday);
    EXPECT_EQ(texts(view), (Lines{"FOCUS", "0", "due", "THIS WEEK", "388", "emails handled",
                                  "+37 vs last week", "37", "needed action", "29", "tasks completed"}));
    EXPECT_EQ(textNamed(view, "388").style.font, (Font{16, FontWeight::semibold}));
    EXPECT_EQ(textNamed(view, "emails handled").style.font, Font{12});
    EXPECT_EQ(textNamed(view, "emails handled").style.color, Color(WTokens::textSecondary));
    EXPECT_EQ(textNamed(view, "+37 vs last week").style.font, Font{11});
    EXPECT_EQ(textNamed(view, "+37 vs last week").style.color, Color(WTokens::textTertiary));
}

TEST(FocusWidget, TheRecapComparisonIsExactForAnyCounts) {
    constexpr auto most = std::numeric_limits<std::int64_t>::max();
    constexpr auto least = std::numeric_limits<std::int64_t>::min();
    const auto delta = [](std::int64_t now, std::int64_t before) {
        return recapDelta(now, before, plainFormats());
    };
    EXPECT_EQ(delta(5, 5), "");
    EXPECT_EQ(delta(6, 5), "+1 vs last week");
    EXPECT_EQ(delta(5, 30), "-25 vs last week");
    EXPECT_EQ(delta(most, least), "+18446744073709551615 vs last week");
    EXPECT_EQ(delta(least, most), "-18446744073709551615 vs last week");
}

TEST(FocusWidget, HostileSummariesStayPlainText) {
    WidgetTask hostile = dueD;
    hostile.summary = "%lld %s <b>x</b> \x1b[31m";
    EXPECT_EQ(texts(viewOf(snapshotWith({hostile}), medium()))[3], hostile.summary);
    hostile.deadline = later.deadline;
    EXPECT_EQ(texts(viewOf(snapshotWith({hostile}), small()))[1], "Next due: " + hostile.summary);
}

} // namespace
} // namespace vantel
