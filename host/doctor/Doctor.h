#pragma once

#include "platform/Formats.h"

namespace vantel {

/// Prints what the widgets find here, a line for each part, on standard output: where they would stand, what
/// the window manager does for them, whom they can ask, and how the shared folder is. Returns the exit
/// status: 1 when something stands in the way. Needs no display, changes nothing, and ends after a second,
/// whoever does not answer. Leave with std::_Exit.
int examine(const Formats& formats);

} // namespace vantel
