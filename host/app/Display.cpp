#include "host/app/Display.h"

#include <cstdlib>

#include <xcb/xcb.h>

namespace vantel {

namespace {

std::string valueOf(const char* variable) {
    const char* value = std::getenv(variable);
    return value == nullptr ? "" : value;
}

bool isSet(const char* variable) {
    return !valueOf(variable).empty();
}

void choose(const char* platform) {
    ::setenv(platformVariable, platform, 1);
}

/// Many sessions ask all programs for Wayland, where an ordinary window could place itself nowhere.
bool asksForWayland() {
    return valueOf(platformVariable).starts_with("wayland");
}

/// The toolkit would end the program with advice to install it anew.
std::optional<std::string> problemWithServer(const std::string& display) {
    xcb_connection_t* connection = ::xcb_connect(display.c_str(), nullptr);
    const bool isWorking = ::xcb_connection_has_error(connection) == 0;
    ::xcb_disconnect(connection);
    if (isWorking)
        return std::nullopt;
    return "the display " + display + " does not answer";
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
        return problemWithServer(valueOf("DISPLAY"));
    }
    if (isSet("WAYLAND_DISPLAY"))
        return "this Wayland session has no X server (Xwayland) beside it, which the widgets need";
    return "there is no display here (neither DISPLAY nor WAYLAND_DISPLAY is set)";
}

} // namespace vantel
