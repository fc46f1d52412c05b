#include "hosting/WidgetFamily.h"

namespace vantel {

namespace {

constexpr std::string_view prefixedNames[] = {"systemSmall", "systemMedium", "systemLarge"};
constexpr std::string_view shortNames[] = {"small", "medium", "large"};

} // namespace

std::string_view name(WidgetFamily family) {
    return prefixedNames[static_cast<std::size_t>(family)];
}

std::string_view shortName(WidgetFamily family) {
    return shortNames[static_cast<std::size_t>(family)];
}

std::optional<WidgetFamily> parseWidgetFamily(std::string_view text) {
    for (const auto family :
         {WidgetFamily::systemSmall, WidgetFamily::systemMedium, WidgetFamily::systemLarge})
        if (text == name(family) || text == shortName(family))
            return family;
    return std::nullopt;
}

} // namespace vantel
