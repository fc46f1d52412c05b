#pragma once

#include <future>

namespace vantel {

/// Ready once the settings and lists of the machine's fonts are read. Invalid where nobody reads them early.
using EarlyFonts = std::shared_future<void>;

/// What the starter calls in the library that holds the program. Until `fonts` is ready nobody may write the
/// environment, since the places of the fonts are read from it, nor end the program but by `_Exit`, which
/// takes nothing down that is still in use. The exit status.
using Program = int(int count, char** words, const EarlyFonts& fonts);

inline constexpr const char* programName = "vantelWidgets";

} // namespace vantel
