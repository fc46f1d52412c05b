#include "hosting/Appearance.h"

#include <algorithm>

namespace vantel {

Appearance Appearance::aqua() {
    return {std::string(aquaName)};
}

Appearance Appearance::darkAqua() {
    return {std::string(darkAquaName)};
}

Appearance Appearance::highContrastAqua() {
    return {"NSAppearanceNameAccessibilityHighContrastAqua", {std::string(aquaName)}};
}

Appearance Appearance::highContrastDarkAqua() {
    return {"NSAppearanceNameAccessibilityHighContrastDarkAqua", {std::string(darkAquaName)}};
}

std::optional<std::string_view> bestMatch(const Appearance& appearance,
                                          std::span<const std::string_view> names) {
    if (const auto found = std::ranges::find(names, appearance.name); found != names.end())
        return *found;
    for (const std::string& base : appearance.variationOf)
        if (const auto found = std::ranges::find(names, base); found != names.end())
            return *found;
    return std::nullopt;
}

} // namespace vantel
