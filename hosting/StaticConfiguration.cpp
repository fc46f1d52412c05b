#include "hosting/StaticConfiguration.h"

#include "platform/FatalError.h"

#include <algorithm>

namespace vantel {

bool StaticConfiguration::supports(WidgetFamily family) const {
    return std::ranges::find(supportedFamilies, family) != supportedFamilies.end();
}

std::expected<WidgetView, std::string> renderedView(const StaticConfiguration& configuration,
                                                    const TimelineEntry& entry, const ViewContext& context) {
    try {
        return WidgetView{configuration.kind, context.family, entry.date, entry.content(context)};
    } catch (const FatalError& error) {
        return std::unexpected(error.what());
    }
}

} // namespace vantel
