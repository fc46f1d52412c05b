#pragma once

namespace vantel {

/// The name of the catalogue that translates this system's texts.
inline constexpr const char* messageDomain = "vantel-widgets";

} // namespace vantel
