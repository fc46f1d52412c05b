#include "widgets/nextup/NextUpWidget.h"

#include "platform/TextKey.h"
#include "widgets/SetupStateView.h"
#include "widgets/SnapshotProvider.h"
#include "widgets/WTokens.h"
#include "widgets/WidgetLinks.h"
#include "widgets/nextup/NextUpMediumView.h"
#include "widgets/nextup/NextUpSmallView.h"

namespace vantel {

StaticConfiguration NextUpWidget::configuration() {
    const auto provider = std::make_shared<const SnapshotProvider>();
    auto configuration = makeStaticConfiguration<SnapshotEntry>(kind, provider, nextUpWidgetView);
    configuration.displayName = textKey("Next up");
    configuration.description = textKey("Your next meeting, with a one-click join link.");
    configuration.supportedFamilies = {WidgetFamily::systemSmall, WidgetFamily::systemMedium};
    return configuration;
}

WidgetContent nextUpWidgetView(const SnapshotEntry& entry, const ViewContext& context) {
    if (!entry.snapshot)
        return {setupStateView(context.formats), WTokens::windowBg};
    const WidgetSnapshot& snapshot = *entry.snapshot;
    const EventList today = todaysEvents(snapshot, entry.date, context.calendar);
    if (context.family == WidgetFamily::systemMedium)
        return {element(NextUpMediumView{entry.date, snapshot, today}, context), WTokens::windowBg,
                WidgetLinks::calendar()};
    const bool imminent = isImminent(today, entry.date);
    return {element(NextUpSmallView{entry.date, snapshot, today, imminent}, context),
            imminent ? WTokens::ink : WTokens::windowBg, WidgetLinks::calendar()};
}

} // namespace vantel
