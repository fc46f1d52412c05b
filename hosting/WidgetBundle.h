#pragma once

#include "hosting/Intent.h"
#include "hosting/StaticConfiguration.h"

#include <string_view>
#include <vector>

namespace vantel {

/// Everything that a host learns about a set of widgets: the kinds, in the order in which a gallery shows
/// them, and the actions that their buttons can run.
struct WidgetBundle {
    std::vector<StaticConfiguration> widgets;
    std::vector<IntentDeclaration> intents;

    /// The declaration of a kind, or null.
    const StaticConfiguration* widget(std::string_view kind) const;
    const IntentDeclaration* intent(std::string_view name) const;
};

} // namespace vantel
