#pragma once

#include "platform/Instant.h"

#include <cstdint>
#include <optional>
#include <string>

namespace vantel {

/// One task of the user. Open exactly while `completedAt` is absent.
struct WidgetTask {
    std::string id; ///< stable; completions name the task by it
    std::string summary;
    std::optional<Instant> deadline{};
    std::optional<bool> deadlineImplied{}; ///< the companion derived the deadline; carried, never consulted
    std::int64_t priorityRank;             ///< carried, never consulted
    double priorityScore;                  ///< larger is more important
    std::optional<Instant> completedAt{};

    bool operator==(const WidgetTask&) const = default;
};

} // namespace vantel
