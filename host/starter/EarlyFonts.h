#pragma once

#include "host/starter/Program.h"

namespace vantel {

/// Begins, on another thread, to read the settings and lists of the machine's fonts, which take as long as
/// all else until the first card is laid out. Nothing is begun, and the result is invalid, where the toolkit
/// will write the environment by itself, where the system gives no thread, or where there is no such library.
/// Nobody can end the thread. Sets how the user's language writes numbers.
EarlyFonts beginFonts();

} // namespace vantel
