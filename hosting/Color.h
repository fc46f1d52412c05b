#pragma once

#include "hosting/Appearance.h"

#include <cstdint>
#include <string_view>
#include <variant>

namespace vantel {

/// A colour that an appearance decides: 0xRRGGBB for light and for dark.
struct DynamicColor {
    std::uint32_t lightHex;
    std::uint32_t darkHex;

    bool operator==(const DynamicColor&) const = default;
};

/// The host's primary text colour at an opacity from 0 to 1.
struct PrimaryColor {
    double opacity = 1;

    bool operator==(const PrimaryColor&) const = default;
};

/// A named colour of the widgets, at an opacity that multiplies its own.
/// The name is a literal and never data, so that a view may be copied and compared cheaply.
struct TokenColor {
    std::string_view name;
    std::variant<DynamicColor, PrimaryColor> value;
    double opacity = 1;

    bool operator==(const TokenColor&) const = default;

    TokenColor at(double newOpacity) const { return {name, value, newOpacity}; }
};

using Color = std::variant<PrimaryColor, TokenColor>;

/// sRGB components, 0 to 1 for every real colour.
struct ResolvedColor {
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 1;

    bool operator==(const ResolvedColor&) const = default;
};

/// The components of a dynamic colour: the dark value when the appearance is nearest to the dark look, else
/// the light one. Red is not masked: a value above 0xFFFFFF gives a red above 1.
ResolvedColor resolve(const DynamicColor& color, const Appearance& appearance);

/// The components of any colour, where the host draws its primary text in `primary`. Made for each drawing,
/// so that a change of appearance needs no new view.
ResolvedColor resolve(const Color& color, const Appearance& appearance, const ResolvedColor& primary);

} // namespace vantel
