#include "host/starter/EarlyFonts.h"

#include <algorithm>
#include <array>
#include <clocale>
#include <cstdlib>
#include <system_error>
#include <thread>

#include <dlfcn.h>
#include <fontconfig/fontconfig.h>

namespace vantel {

namespace {

/// Taken out of the environment when a launcher left them.
constexpr std::array launchVariables{"DESKTOP_STARTUP_ID", "XDG_ACTIVATION_TOKEN"};

bool isSet(const char* variable) {
    return std::getenv(variable) != nullptr;
}

/// Not linked: the linker would look for each symbol of the program in this library and all that it needs.
decltype(&FcInit) fontReader() {
    void* library = ::dlopen("libfontconfig.so.1", RTLD_LAZY);
    return library == nullptr ? nullptr : reinterpret_cast<decltype(&FcInit)>(::dlsym(library, "FcInit"));
}

/// Whoever lets go of a library's own asynchronous task would wait for the fonts.
EarlyFonts readOnThread(decltype(&FcInit) read) {
    std::promise<void> promise;
    EarlyFonts fonts = promise.get_future().share();
    std::thread([read, promise = std::move(promise)]() mutable {
        read();
        promise.set_value();
    }).detach();
    return fonts;
}

} // namespace

EarlyFonts beginFonts() {
    const auto read = std::ranges::any_of(launchVariables, isSet) ? nullptr : fontReader();
    if (read == nullptr)
        return {};
    std::setlocale(LC_NUMERIC, ""); // The toolkit will, and numbers in the settings may be half read by then.
    try {
        return readOnThread(read);
    } catch (const std::system_error&) {
        return {};
    }
}

} // namespace vantel
