#pragma once

#include "hosting/Color.h"

/// The colours of the widgets by name. Each is made once; light or dark is decided at each drawing.
namespace vantel::WTokens {

inline constexpr TokenColor windowBg{"windowBg", DynamicColor{0xF5F4F1, 0x1C1C1E}};
inline constexpr TokenColor priHighFill{"priHighFill", DynamicColor{0xE84D42, 0xFF6A5C}};
inline constexpr TokenColor priHighText{"priHighText", DynamicColor{0xD23B2E, 0xFF6A5C}};
inline constexpr TokenColor priMedFill{"priMedFill", DynamicColor{0xC88374, 0xD9A091}};

/// The imminent card is dark in every appearance, so these do not change.
inline constexpr TokenColor ink{"ink", DynamicColor{0x1B1A17, 0x1B1A17}};
inline constexpr TokenColor alarmRed{"alarmRed", DynamicColor{0xFF6A5C, 0xFF6A5C}};
inline constexpr TokenColor paper{"paper", DynamicColor{0xFAFAF8, 0xFAFAF8}};

inline constexpr TokenColor textSecondary{"textSecondary", PrimaryColor{0.6}};
inline constexpr TokenColor textTertiary{"textTertiary", PrimaryColor{0.3}};
inline constexpr TokenColor hairline{"hairline", PrimaryColor{0.1}};

} // namespace vantel::WTokens
