#include "widgets/VantelWidgetsBundle.h"

#include "platform/FatalError.h"
#include "widgets/CompleteTodoIntent.h"
#include "widgets/focus/FocusWidget.h"
#include "widgets/grouptoday/GroupTodayWidget.h"
#include "widgets/nextup/NextUpWidget.h"
#include "widgets/triage/TriageWidget.h"

namespace vantel {

namespace {

using Content = WidgetContent (*)(const SnapshotEntry&, const ViewContext&);

Content contentOf(std::string_view kind) {
    if (kind == FocusWidget::kind)
        return focusWidgetView;
    if (kind == NextUpWidget::kind)
        return nextUpWidgetView;
    if (kind == TriageWidget::kind)
        return triageWidgetView;
    if (kind == GroupTodayWidget::kind)
        return groupTodayView;
    fatalError("The bundle has no widget of the kind " + std::string(kind) + ".");
}

} // namespace

WidgetBundle VantelWidgetsBundle::body() {
    return {.widgets = {FocusWidget::configuration(), NextUpWidget::configuration(),
                        TriageWidget::configuration(), GroupTodayWidget::configuration()},
            .intents = {CompleteTodoIntent::declaration()}};
}

TimelineEntry VantelWidgetsBundle::entry(std::string_view kind, SnapshotEntry source) {
    return erasedEntry(std::move(source), contentOf(kind));
}

} // namespace vantel
