#pragma once

#include "hosting/ViewText.h"
#include "hosting/card/Canvas.h"

#include <string>

namespace vantel::card {

/// The rows of a canvas, one to a line. With colours, each line begins by setting its own and ends by
/// resetting them.
std::string printed(const Canvas& canvas, TerminalColors colors);

} // namespace vantel::card
