#pragma once

#include "core/WidgetSnapshot.h"

#include <memory>

namespace vantel {

/// What the widgets show from one moment on. All entries of a timeline share one snapshot.
struct SnapshotEntry {
    Instant date;                                   ///< the current moment for everything in the view
    std::shared_ptr<const WidgetSnapshot> snapshot; ///< null when there is none

    bool operator==(const SnapshotEntry& other) const;
};

} // namespace vantel
