#include "core/WidgetHorizonItem.h"

#include <algorithm>
#include <array>

namespace vantel {

namespace {

constexpr std::array<std::string_view, 4> rawValues = {"personDate", "grantDeadline", "grantMilestone",
                                                       "absence"};

} // namespace

std::string_view rawValue(WidgetHorizonItem::Kind kind) {
    return rawValues.at(static_cast<std::size_t>(kind));
}

std::optional<WidgetHorizonItem::Kind> horizonItemKind(std::string_view rawValue) {
    const auto found = std::ranges::find(rawValues, rawValue);
    if (found == rawValues.end())
        return std::nullopt;
    return static_cast<WidgetHorizonItem::Kind>(found - rawValues.begin());
}

} // namespace vantel
