#include "host/app/Display.h"

#include <cstdlib>
#include <string_view>

#include <xcb/xcb.h>

namespace vantel {

namespace {

bool isSet(const char* variable) {
    const char* value = std::getenv(variable);
    return value != nullptr && *value != '\0';
}

void choose(const char* platform) {
    ::setenv(platformVariable, platform, 1);
}

/// Many sessions ask all programs for Wayland, where an ordinary window could place itself nowhere.
bool asksForWayland() {
    const char* value = std::getenv(platformVariable);
    return value != nullptr && std::string_view(value).starts_with("wayland");
}

/// The toolkit would end the program with advice to install it anew.
std::optional<std::string> problemWithServer() {
    xcb_connection_t* connection = ::xcb_connect(nullptr, nullptr);
    const bool isWorking = ::xcb_connection_has_error(connection) == 0;
    ::xcb_disconnect(connection);
    if (isWorking)
        return std::nullopt;
    return "the display " + std::string(std::getenv("DISPLAY")) + " does not answer";
}

} // namespace

std::optional<std::string> chooseDisplay(Task task) {
    if (task == Task::renderCard || task == Task::renderGallery) {
        choose("offscreen");
        ::setenv("QT_LOGGING_RULES", "default.warning=false",
                 0); // it misses folders that pictures do not need
        return std::nullopt;
    }
    if (isSet(platformVariable) && !asksForWayland())
        return std::nullopt;
    if (isSet("DISPLAY")) {
        choose("xcb");
        return problemWithServer();
    }
    if (isSet("WAYLAND_DISPLAY"))
        return "this Wayland session has no X server (Xwayland) beside it, which the widgets need";
    return "there is no display here (neither DISPLAY nor WAYLAND_DISPLAY is set)";
}

} // namespace vantel
