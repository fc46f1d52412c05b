#pragma once

#include "hosting/StaticConfiguration.h"
#include "widgets/SnapshotEntry.h"

namespace vantel {

/// Who is away, whose contract needs attention, and which dates come up.
struct GroupTodayWidget {
    static constexpr const char* kind = "VantelGroupTodayWidget";

    static StaticConfiguration configuration();
};

WidgetContent groupTodayView(const SnapshotEntry& entry, const ViewContext& context);

} // namespace vantel
