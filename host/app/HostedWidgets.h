#pragma once

#include "hosting/WidgetBundle.h"

#include <functional>
#include <string>

namespace vantel {

/// What the program hosts. The host itself knows no widget.
struct HostedWidgets {
    WidgetBundle bundle;

    /// What a kind shows that has nothing to show.
    std::function<TimelineEntry(const std::string& kind, Instant now)> entryWithoutData;

    /// What a card is filled with in the moment before its first view.
    TokenColor emptyBackground;

    /// The scheme of the links on the cards. No other is opened.
    std::string linkScheme;
};

} // namespace vantel
