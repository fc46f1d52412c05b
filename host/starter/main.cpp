#include "host/starter/EarlyFonts.h"
#include "host/starter/LoadedFunction.h"
#include "host/starter/Program.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include <dlfcn.h>
#include <malloc.h>

namespace {

/// Beside the starter, built or installed. Not a run path of the starter's: where a sanitizer stands between
/// it and the linker, the sanitizer's own is looked at.
std::filesystem::path programLibrary() {
    std::error_code error;
    const auto starter = std::filesystem::read_symlink("/proc/self/exe", error);
    return starter.parent_path().parent_path() / VANTEL_PROGRAM;
}

} // namespace

/// Linking the toolkit takes as long as reading the fonts, and nothing of a program runs before all that it
/// links is there. So this one links next to nothing, and does both at the same time.
int main(int count, char** words) {
    ::mallopt(M_ARENA_MAX, 1);     // A heap for each short-lived worker would grow for years.
    std::signal(SIGXFSZ, SIG_IGN); // A file that may not grow is an error to report, not the end.
    // Words ask for pictures, which have fonts of their own, or for what may come a little later.
    const vantel::EarlyFonts fonts = count == 1 ? vantel::beginFonts() : vantel::EarlyFonts();
    auto* const program =
        vantel::loadedFunction<decltype(vantelWidgets)>(programLibrary().c_str(), "vantelWidgets");
    if (program == nullptr) {
        std::fprintf(stderr, "vantel-widgets: fatal: %s\n", ::dlerror());
        std::_Exit(EXIT_FAILURE);
    }
    return program(count, words, fonts);
}
