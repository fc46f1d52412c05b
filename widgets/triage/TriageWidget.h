#pragma once

#include "hosting/StaticConfiguration.h"
#include "widgets/SnapshotEntry.h"

namespace vantel {

/// How many emails wait, and how long a look at them takes.
struct TriageWidget {
    static constexpr const char* kind = "VantelTriageWidget";

    static StaticConfiguration configuration();
};

WidgetContent triageWidgetView(const SnapshotEntry& entry, const ViewContext& context);

/// Twenty seconds an email, to the nearest minute, halves away from zero; there is no least minute.
std::int64_t triageMinutes(std::int64_t emails);

} // namespace vantel
