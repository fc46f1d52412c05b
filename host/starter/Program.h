#pragma once

#include <future>

namespace vantel {

/// Ready once the settings and lists of the machine's fonts are read. Invalid where nobody reads them early.
using EarlyFonts = std::shared_future<void>;

} // namespace vantel

/// The program, which the starter finds in its library by this name. Until `fonts` is ready nobody may write
/// the environment, since the places of the fonts are read from it, nor end the program but by `_Exit`, which
/// takes nothing down that is still in use. `fonts` is invalid where the command line has more than the
/// program's name: it may ask for pictures, whose fonts are named in the environment first. The exit status.
extern "C" int vantelWidgets(int count, char** words, const vantel::EarlyFonts& fonts);
