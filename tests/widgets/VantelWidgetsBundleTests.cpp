#include "tests/widgets/WidgetFixture.h"
#include "widgets/VantelWidgetsBundle.h"

#include <gtest/gtest.h>

namespace vantel {
namespace {

using namespace testing;
using Families = std::vector<WidgetFamily>;

TEST(VantelWidgetsBundle, DeclaresTheFourWidgetsInOrder) {
    struct Row {
        const char* kind;
        const char* displayName;
        const char* description;
        Families families;
    };
    const Families both = {WidgetFamily::systemSmall, WidgetFamily::systemMedium};
    const std::vector<Row> rows = {
        {"VantelFocusWidget", "Focus", "Due and overdue tasks — what today needs.", both},
        {"VantelNextUpWidget", "Next up", "Your next meeting, with a one-click join link.", both},
        {"VantelTriageWidget",
         "Triage",
         "Emails waiting for a look — swipe the deck empty.",
         {WidgetFamily::systemSmall}},
        {"VantelGroupTodayWidget",
         "Group today",
         "Absences, contract flags, and upcoming lab dates.",
         {WidgetFamily::systemMedium}},
    };
    const WidgetBundle bundle = VantelWidgetsBundle::body();
    ASSERT_EQ(bundle.widgets.size(), rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(bundle.widgets[i].kind, rows[i].kind);
        EXPECT_EQ(bundle.widgets[i].displayName, rows[i].displayName);
        EXPECT_EQ(bundle.widgets[i].description, rows[i].description);
        EXPECT_EQ(bundle.widgets[i].supportedFamilies, rows[i].families);
    }
}

TEST(VantelWidgetsBundle, EveryDeclaredWidgetDrawsItsSampleInEveryFamily) {
    const FixedClock clock(at("2026-11-17T09:20"));
    for (const StaticConfiguration& widget : VantelWidgetsBundle::body().widgets)
        for (const WidgetFamily family : widget.supportedFamilies) {
            const TimelineEntry sample =
                widget.placeholder({.clock = clock, .calendar = berlin(), .family = family});
            const auto view = renderedView(widget, sample, {family, berlin(), plainFormats()});
            ASSERT_TRUE(view) << widget.kind;
            EXPECT_EQ(view->kind, widget.kind);
            EXPECT_EQ(view->date, clock.now());
            EXPECT_GE(texts(view->content.content).size(), 3U) << widget.kind;
        }
}

TEST(VantelWidgetsBundle, AnAgeBeyondNumbersIsContainedAtTheWidget) {
    const WidgetSnapshot ancient = emptySnapshot(instantFromReference(-1e300));
    const WidgetBundle bundle = VantelWidgetsBundle::body();
    const auto view = renderedView(
        *bundle.widget("VantelNextUpWidget"),
        VantelWidgetsBundle::entry("VantelNextUpWidget", entry(ancient, at("2026-11-17"))), medium());
    ASSERT_FALSE(view);
    EXPECT_EQ(view.error(), "The age of the snapshot is no number of hours.");
}

} // namespace
} // namespace vantel
