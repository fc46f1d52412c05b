#include "host/starter/EarlyFonts.h"

#include <cstdio>
#include <cstdlib>

#include <dlfcn.h>
#include <malloc.h>

namespace {

vantel::Program* loadProgram() {
    void* library = ::dlopen(vantel::programLibrary, RTLD_LAZY);
    return library == nullptr ? nullptr
                              : reinterpret_cast<vantel::Program*>(::dlsym(library, vantel::programName));
}

} // namespace

/// Linking the toolkit takes as long as reading the fonts, and nothing of a program runs before all that it
/// links is there. So this one links next to nothing, and does both at the same time.
int main(int count, char** words) {
    ::mallopt(M_ARENA_MAX, 1); // A heap for each short-lived worker would grow for years.
    // Words ask for pictures, which have fonts of their own, or for what may come a little later.
    const vantel::EarlyFonts fonts = count == 1 ? vantel::beginFonts() : vantel::EarlyFonts();
    vantel::Program* program = loadProgram();
    if (program == nullptr) {
        std::fprintf(stderr, "vantel-widgets: fatal: %s\n", ::dlerror());
        std::_Exit(EXIT_FAILURE);
    }
    return program(count, words, fonts);
}
