#pragma once

#include <cstdint>

namespace vantel {

/// Counters of the recap period.
struct WidgetRecap {
    std::int64_t received;
    std::int64_t processed;
    std::int64_t actionItems;
    std::int64_t spamFiltered;
    std::int64_t tasksCompleted;
    std::int64_t previousProcessed; ///< processed in the period before, for comparison

    bool operator==(const WidgetRecap&) const = default;
};

} // namespace vantel
