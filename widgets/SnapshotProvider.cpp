#include "widgets/SnapshotProvider.h"

#include "core/WidgetBuckets.h"
#include "widgets/TimelinePlan.h"

namespace vantel {

namespace {

std::shared_ptr<const WidgetSnapshot> shared(std::optional<WidgetSnapshot> snapshot) {
    return snapshot ? std::make_shared<const WidgetSnapshot>(std::move(*snapshot)) : nullptr;
}

} // namespace

bool SnapshotEntry::operator==(const SnapshotEntry& other) const {
    if (date != other.date)
        return false;
    if (snapshot == other.snapshot)
        return true;
    return snapshot && other.snapshot && *snapshot == *other.snapshot;
}

SnapshotEntry SnapshotProvider::placeholder(const TimelineProviderContext& context) const {
    const Instant now = context.clock.now();
    return {now, shared(WidgetSnapshot::placeholder(now, context.calendar))};
}

SnapshotEntry SnapshotProvider::getSnapshot(const TimelineProviderContext& context) const {
    if (!context.isPreview)
        if (auto snapshot = WidgetSnapshot::load())
            return {context.clock.now(), shared(std::move(snapshot))};
    return placeholder(context);
}

Timeline<SnapshotEntry> SnapshotProvider::getTimeline(const TimelineProviderContext& context) const {
    const Instant now = context.clock.now();
    return plannedTimeline(shared(WidgetSnapshot::load()), now, context.calendar);
}

Timeline<SnapshotEntry> plannedTimeline(const std::shared_ptr<const WidgetSnapshot>& snapshot, Instant now,
                                        const Calendar& calendar) {
    Timeline<SnapshotEntry> timeline{{}, {WidgetBuckets::nextMidnight(now, calendar)}};
    for (const PlannedMoment& moment : plannedMoments(snapshot.get(), now, calendar))
        if (timeline.entries.empty() || timeline.entries.back().date != moment.date)
            timeline.entries.push_back({moment.date, snapshot});
    return timeline;
}

} // namespace vantel
