#include "host/surface/CompositorProbe.h"

#include "host/surface/LayerShellProtocol.h"
#include "host/surface/WaylandRegistry.h"

#include <cstdlib>

namespace vantel {

namespace {

bool isSet(const char* variable) {
    const char* value = std::getenv(variable);
    return value != nullptr && *value != '\0';
}

/// A connection that was opened by whoever started the program can be used only once, by the application.
bool hasCompositor() {
    return isSet("WAYLAND_DISPLAY") && !isSet("WAYLAND_SOCKET");
}

} // namespace

Compositor askCompositor() {
    wl_display* display = hasCompositor() ? wl_display_connect(nullptr) : nullptr;
    if (display == nullptr)
        return Compositor::none;
    const bool hasLayers = WaylandRegistry(display).find(layershell::globalName).has_value();
    wl_display_disconnect(display);
    return hasLayers ? Compositor::withLayers : Compositor::withoutLayers;
}

} // namespace vantel
