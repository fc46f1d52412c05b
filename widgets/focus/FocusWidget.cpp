#include "widgets/focus/FocusWidget.h"

#include "platform/TextKey.h"
#include "widgets/SetupStateView.h"
#include "widgets/SnapshotProvider.h"
#include "widgets/WTokens.h"
#include "widgets/WidgetLinks.h"
#include "widgets/focus/FocusMediumView.h"
#include "widgets/focus/FocusSmallView.h"

namespace vantel {

StaticConfiguration FocusWidget::configuration() {
    const auto provider = std::make_shared<const SnapshotProvider>();
    auto configuration = makeStaticConfiguration<SnapshotEntry>(kind, provider, focusWidgetView);
    configuration.displayName = textKey("Focus");
    configuration.description = textKey("Due and overdue tasks — what today needs.");
    configuration.supportedFamilies = {WidgetFamily::systemSmall, WidgetFamily::systemMedium};
    return configuration;
}

WidgetContent focusWidgetView(const SnapshotEntry& entry, const ViewContext& context) {
    if (!entry.snapshot)
        return {setupStateView(context.formats), WTokens::windowBg, WidgetLinks::focus()};
    const FocusInput input(entry, context.calendar);
    const bool isMedium = context.family == WidgetFamily::systemMedium;
    return {isMedium ? focusMediumView(input, context) : focusSmallView(input, context), WTokens::windowBg,
            WidgetLinks::focus()};
}

} // namespace vantel
