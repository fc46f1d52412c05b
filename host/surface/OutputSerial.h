#pragma once

#include <string>
#include <string_view>

namespace vantel {

/// The serial number of an output, from the compositor's sentence about it: "Dell Inc. U2415 7MT0186 (DP-1)".
/// Wayland has no other place for it. Empty where the sentence has another form, or names no number.
std::string outputSerial(std::string_view description, std::string_view make, std::string_view model,
                         std::string_view name);

} // namespace vantel
