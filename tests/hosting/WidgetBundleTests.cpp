#include "hosting/WidgetBundle.h"

#include <gtest/gtest.h>

namespace vantel {
namespace {

StaticConfiguration widgetOfKind(std::string kind) {
    StaticConfiguration widget;
    widget.kind = std::move(kind);
    return widget;
}

WidgetBundle twoWidgets() {
    return {.widgets = {widgetOfKind("First"), widgetOfKind("Second")},
            .intents = {{.name = "Complete", .title = "Complete", .isDiscoverable = false, .perform = {}}}};
}

TEST(WidgetBundle, AWidgetIsFoundByItsWholeKind) {
    const WidgetBundle bundle = twoWidgets();
    EXPECT_EQ(bundle.widget("First"), &bundle.widgets[0]);
    EXPECT_EQ(bundle.widget("Second"), &bundle.widgets[1]);
    for (const char* kind : {"", "first", "Firs", "First ", "Third"})
        EXPECT_EQ(bundle.widget(kind), nullptr) << kind;
}

TEST(WidgetBundle, AnIntentIsFoundByItsWholeName) {
    const WidgetBundle bundle = twoWidgets();
    EXPECT_EQ(bundle.intent("Complete"), bundle.intents.data());
    for (const char* name : {"", "complete", "CompleteTodo"})
        EXPECT_EQ(bundle.intent(name), nullptr) << name;
}

TEST(WidgetBundle, AnEmptyBundleHasNothing) {
    EXPECT_EQ(WidgetBundle{}.widget("First"), nullptr);
    EXPECT_EQ(WidgetBundle{}.intent("Complete"), nullptr);
}

TEST(WidgetBundle, AnIntentCallHasItsParametersByName) {
    const IntentCall call{"Complete", {{"todoID", "t-1"}, {"accountID", ""}}};
    EXPECT_EQ(call.parameter("todoID"), "t-1");
    EXPECT_EQ(call.parameter("accountID"), "");
    EXPECT_EQ(call.parameter("todoid"), std::nullopt);
}

} // namespace
} // namespace vantel
