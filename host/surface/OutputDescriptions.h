#pragma once

#include <map>
#include <string>
#include <string_view>

namespace vantel {

/// The serial number of an output, from the compositor's sentence about it: "Dell Inc. U2415 7MT0186 (DP-1)".
/// Wayland has no other place for it. Empty where the sentence has another form, or names no number.
std::string outputSerial(std::string_view description, std::string_view make, std::string_view model,
                         std::string_view name);

/// Sentences of the session's compositor about its outputs, by their names. Asks it, and waits for the
/// answer.
///
/// It is asked on a connection that lives only so long: surfaces hear of every output object of their
/// connection that they come to, and the toolkit does not survive to hear of one that it does not know.
std::map<std::string, std::string> describeOutputs();

} // namespace vantel
