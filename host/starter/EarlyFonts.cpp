#include "host/starter/EarlyFonts.h"

#include "host/starter/LoadedFunction.h"

#include <algorithm>
#include <array>
#include <clocale>
#include <cstdlib>
#include <system_error>
#include <thread>

#include <fontconfig/fontconfig.h>

namespace vantel {

namespace {

/// Taken out of the environment when a launcher left them.
constexpr std::array launchVariables{"DESKTOP_STARTUP_ID", "XDG_ACTIVATION_TOKEN"};

bool isSet(const char* variable) {
    return std::getenv(variable) != nullptr;
}

/// Not linked: the linker would look for each symbol of the program in this library and all that it needs.
auto* fontReader() {
    return loadedFunction<decltype(FcInit)>("libfontconfig.so.1", "FcInit");
}

/// Not `std::async`: whoever lets go of its result waits for it.
EarlyFonts readOnThread(decltype(FcInit)* read) {
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
    auto* const read = std::ranges::any_of(launchVariables, isSet) ? nullptr : fontReader();
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
