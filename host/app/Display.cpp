#include "host/app/Display.h"

#include <cstdlib>

namespace vantel {

namespace {

bool isSet(const char* variable) {
    const char* value = std::getenv(variable);
    return value != nullptr && *value != '\0';
}

void choose(const char* platform) {
    ::setenv(platformVariable, platform, 1);
}

} // namespace

std::optional<std::string> chooseDisplay(Task task) {
    if (task == Task::renderCard || task == Task::renderGallery) {
        choose("offscreen");
        ::setenv("QT_LOGGING_RULES", "default.warning=false",
                 0); // it misses folders that pictures do not need
        return std::nullopt;
    }
    if (isSet(platformVariable))
        return std::nullopt;
    if (isSet("DISPLAY")) {
        choose("xcb");
        return std::nullopt;
    }
    if (isSet("WAYLAND_DISPLAY"))
        return "this Wayland session has no X server (Xwayland) beside it, which the widgets need";
    return "there is no display here (neither DISPLAY nor WAYLAND_DISPLAY is set)";
}

} // namespace vantel
