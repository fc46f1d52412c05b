#pragma once

#include "platform/Instant.h"
#include "platform/Url.h"

#include <cstdint>
#include <optional>
#include <string>

namespace vantel {

/// One calendar event.
struct WidgetEvent {
    std::string id; ///< stable
    std::string title;
    Instant start;
    std::optional<Instant> end{}; ///< absent when unknown
    std::optional<std::string> location{};
    std::optional<Url> joinURL{};
    std::optional<std::string> joinProvider{}; ///< "Zoom", "Teams"
    std::int64_t linkedOpenTaskCount;

    bool operator==(const WidgetEvent&) const = default;
};

} // namespace vantel
