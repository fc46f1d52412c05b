#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vantel {

/// A look of the desktop: its name, and the looks it is a variation of, nearest first.
struct Appearance {
    std::string name;
    std::vector<std::string> variationOf = {};

    bool operator==(const Appearance&) const = default;

    static Appearance aqua();
    static Appearance darkAqua();
    static Appearance highContrastAqua();
    static Appearance highContrastDarkAqua();
};

inline constexpr std::string_view aquaName = "NSAppearanceNameAqua";
inline constexpr std::string_view darkAquaName = "NSAppearanceNameDarkAqua";

/// The one of `names` that an appearance is nearest to: itself, else the first look that it is a variation
/// of. Absent when none of them is related.
std::optional<std::string_view> bestMatch(const Appearance& appearance,
                                          std::span<const std::string_view> names);

} // namespace vantel
