#pragma once

#include <string_view>

namespace vantel::card {

/// The character that stands for a symbol, one column wide. A symbol without one is a bullet.
std::string_view symbolGlyph(std::string_view name);

} // namespace vantel::card
