#pragma once

#include <QRect>
#include <QSize>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace vantel {

/// What a compositor tells of an output beyond what the toolkit hears.
struct ProbedOutput {
    std::string description = {};
    std::optional<QSize> usable =
        {}; ///< what panels leave of it, in logical pixels, where it is told at once
};

/// The outputs of the session's compositor, by their names. Asks it, and waits for the answers.
///
/// It is asked on a connection that lives only so long: surfaces hear of every output object of their
/// connection that they come to, and the toolkit does not survive to hear of one that it does not know.
std::map<std::string, ProbedOutput> probeOutputs();

/// The serial number of an output, from the compositor's sentence about it: "Dell Inc. U2415 7MT0186 (DP-1)".
/// Wayland has no other place for it. Empty where the sentence has another form, or names no number.
std::string outputSerial(std::string_view description, std::string_view make, std::string_view model,
                         std::string_view name);

/// The part of a screen that surely is without panels. Nobody tells at which edges they are, so what is
/// missing is taken from both sides.
QRect withoutPanels(const QRect& screen, QSize usable);

} // namespace vantel
