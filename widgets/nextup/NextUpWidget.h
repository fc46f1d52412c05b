#pragma once

#include "hosting/StaticConfiguration.h"
#include "widgets/SnapshotEntry.h"

namespace vantel {

/// The next meeting, with a one-click join link.
struct NextUpWidget {
    static constexpr const char* kind = "VantelNextUpWidget";

    static StaticConfiguration configuration();
};

/// The widget at an entry's date. Any size but medium is drawn as small; only that one has the dark card.
WidgetContent nextUpWidgetView(const SnapshotEntry& entry, const ViewContext& context);

} // namespace vantel
