#pragma once

#include "hosting/StaticConfiguration.h"
#include "widgets/SnapshotEntry.h"

namespace vantel {

/// Due and overdue tasks: what today needs.
struct FocusWidget {
    static constexpr const char* kind = "VantelFocusWidget";

    static StaticConfiguration configuration();
};

/// The widget at an entry's date. Any size but medium is drawn as small.
WidgetContent focusWidgetView(const SnapshotEntry& entry, const ViewContext& context);

} // namespace vantel
