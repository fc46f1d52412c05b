#pragma once

#include "hosting/TimelineProvider.h"
#include "widgets/SnapshotEntry.h"

namespace vantel {

/// The one provider behind all four widgets. Keeps nothing: each timeline reads the shared snapshot anew,
/// waiting for its lock without a time-out.
class SnapshotProvider final : public TimelineProvider<SnapshotEntry> {
public:
    SnapshotEntry placeholder(const TimelineProviderContext& context) const override;

    /// Sample data for a preview and where there is no snapshot, so that a gallery never shows the setup
    /// state.
    SnapshotEntry getSnapshot(const TimelineProviderContext& context) const override;

    /// Entries without a snapshot where there is none: the widgets then show their setup state.
    Timeline<SnapshotEntry> getTimeline(const TimelineProviderContext& context) const override;
};

/// The timeline of a given snapshot (null for none) from `now` until the next midnight.
Timeline<SnapshotEntry> plannedTimeline(const std::shared_ptr<const WidgetSnapshot>& snapshot, Instant now,
                                        const Calendar& calendar);

} // namespace vantel
