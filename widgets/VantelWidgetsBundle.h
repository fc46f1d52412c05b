#pragma once

#include "hosting/WidgetBundle.h"
#include "widgets/SnapshotEntry.h"

namespace vantel {

/// The four widgets, in the order in which a gallery shows them, and their one intent.
struct VantelWidgetsBundle {
    static WidgetBundle body();

    /// The entry of a kind of the bundle for a snapshot that did not come from the provider, such as one read
    /// from a file. An unknown kind is a fatal error.
    static TimelineEntry entry(std::string_view kind, SnapshotEntry source);
};

} // namespace vantel
