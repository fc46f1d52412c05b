#pragma once

#include <dlfcn.h>

namespace vantel {

/// A function of a library that is loaded now, and never unloaded; null where one of them is missing, which
/// `dlerror` explains. Nobody checks that the function has the type that is asked for.
template <typename Function>
Function* loadedFunction(const char* library, const char* name) {
    void* const loaded = ::dlopen(library, RTLD_LAZY);
    return loaded == nullptr ? nullptr : reinterpret_cast<Function*>(::dlsym(loaded, name));
}

} // namespace vantel
