#pragma once

#include "platform/Instant.h"

#include <optional>
#include <string>
#include <string_view>

namespace vantel {

/// One upcoming dated item of the group.
struct WidgetHorizonItem {
    enum class Kind { personDate, grantDeadline, grantMilestone, absence };

    std::string id; ///< stable
    Instant day;    ///< the first day
    std::string label;
    std::string subject; ///< whom or what it concerns
    Kind kind;
    std::optional<Instant> endDay{}; ///< the last day of an item that lasts several

    bool operator==(const WidgetHorizonItem&) const = default;
};

/// The kind as documents spell it: "personDate" and so on.
std::string_view rawValue(WidgetHorizonItem::Kind kind);

/// The kind of exactly that spelling; nothing for any other text.
std::optional<WidgetHorizonItem::Kind> horizonItemKind(std::string_view rawValue);

} // namespace vantel
