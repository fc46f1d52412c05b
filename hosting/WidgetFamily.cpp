#include "hosting/WidgetFamily.h"

#include <array>

namespace vantel {

namespace {

constexpr std::array<std::string_view, 3> prefixedNames = {"systemSmall", "systemMedium", "systemLarge"};
constexpr std::array<std::string_view, 3> shortNames = {"small", "medium", "large"};

} // namespace

std::string_view name(WidgetFamily family) {
    return prefixedNames.at(static_cast<std::size_t>(family));
}

std::string_view shortName(WidgetFamily family) {
    return shortNames.at(static_cast<std::size_t>(family));
}

std::optional<WidgetFamily> parseWidgetFamily(std::string_view text) {
    for (const auto family :
         {WidgetFamily::systemSmall, WidgetFamily::systemMedium, WidgetFamily::systemLarge})
        if (text == name(family) || text == shortName(family))
            return family;
    return std::nullopt;
}

} // namespace vantel
