#pragma once

#include "hosting/WidgetBundle.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace vantel {

/// The names under which people type the kinds.
struct WidgetName {
    std::string_view shortName;
    std::string_view kind;
};

inline constexpr std::array widgetNames = {
    WidgetName{"focus", "VantelFocusWidget"}, WidgetName{"next-up", "VantelNextUpWidget"},
    WidgetName{"triage", "VantelTriageWidget"}, WidgetName{"group-today", "VantelGroupTodayWidget"}};

/// The kind that a short name or full kind string means, or null.
inline const StaticConfiguration* findWidget(const WidgetBundle& bundle, std::string_view name) {
    const auto found = std::ranges::find(widgetNames, name, &WidgetName::shortName);
    return bundle.widget(found == widgetNames.end() ? name : found->kind);
}

inline std::string_view shortNameOf(std::string_view kind) {
    const auto found = std::ranges::find(widgetNames, kind, &WidgetName::kind);
    return found == widgetNames.end() ? kind : found->shortName;
}

} // namespace vantel
