#include "host/surface/LayerShellProtocol.h"

#include <array>

#include <wayland-client-protocol.h>

namespace vantel::layershell {

namespace {

/// The requests' numbers are their places in the tables below.
enum class ShellRequest : std::uint32_t { getLayerSurface, destroy };

enum class SurfaceRequest : std::uint32_t {
    setSize,
    setAnchor,
    setExclusiveZone,
    setMargin,
    setKeyboard,
    getPopup,
    acknowledge,
    destroy,
    setLayer
};

/// For arguments that are no objects.
// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables): the library has no const for them
std::array<const wl_interface*, 4> plainTypes{};

constexpr std::array<wl_message, 9> surfaceRequests{{{"set_size", "uu", plainTypes.data()},
                                                     {"set_anchor", "u", plainTypes.data()},
                                                     {"set_exclusive_zone", "i", plainTypes.data()},
                                                     {"set_margin", "iiii", plainTypes.data()},
                                                     {"set_keyboard_interactivity", "u", plainTypes.data()},
                                                     {"get_popup", "o", plainTypes.data()},
                                                     {"ack_configure", "u", plainTypes.data()},
                                                     {"destroy", "", plainTypes.data()},
                                                     {"set_layer", "2u", plainTypes.data()}}};

constexpr std::array<wl_message, 2> surfaceEvents{
    {{"configure", "uuu", plainTypes.data()}, {"closed", "", plainTypes.data()}}};

constexpr wl_interface surfaceInterface{"zwlr_layer_surface_v1", newestVersion,        surfaceRequests.size(),
                                        surfaceRequests.data(),  surfaceEvents.size(), surfaceEvents.data()};

// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables): the library has no const for them
std::array<const wl_interface*, 5> getLayerSurfaceTypes{&surfaceInterface, &wl_surface_interface,
                                                        &wl_output_interface, nullptr, nullptr};

constexpr std::array<wl_message, 2> shellRequests{
    {{"get_layer_surface", "no?ous", getLayerSurfaceTypes.data()}, {"destroy", "3", plainTypes.data()}}};

constexpr wl_interface shellTable{globalName, newestVersion, shellRequests.size(), shellRequests.data(),
                                  0,          nullptr};

enum class Ending : std::uint32_t { none = 0, destroys = WL_MARSHAL_FLAG_DESTROY };

template <typename... Arguments>
void ask(wl_proxy* surface, SurfaceRequest request, Ending ending, Arguments... arguments) {
    wl_proxy_marshal_flags(surface, static_cast<std::uint32_t>(request), nullptr,
                           wl_proxy_get_version(surface), static_cast<std::uint32_t>(ending), arguments...);
}

template <typename... Arguments>
void ask(wl_proxy* surface, SurfaceRequest request, Arguments... arguments) {
    ask(surface, request, Ending::none, arguments...);
}

} // namespace

const wl_interface& shellInterface() {
    return shellTable;
}

void destroyShell(wl_proxy* shell) {
    if (wl_proxy_get_version(shell) < versionOfDestroyShell)
        return wl_proxy_destroy(shell);
    wl_proxy_marshal_flags(shell, static_cast<std::uint32_t>(ShellRequest::destroy), nullptr,
                           wl_proxy_get_version(shell), WL_MARSHAL_FLAG_DESTROY);
}

wl_proxy* getLayerSurface(wl_proxy* shell, wl_surface* surface, wl_output* output, Layer layer,
                          const char* name) {
    return wl_proxy_marshal_flags(shell, static_cast<std::uint32_t>(ShellRequest::getLayerSurface),
                                  &surfaceInterface, wl_proxy_get_version(shell), 0, nullptr, surface, output,
                                  static_cast<std::uint32_t>(layer), name);
}

void listen(wl_proxy* surface, const SurfaceListener& listener, void* data) {
    // The library takes the functions of every listener as one type, and calls each with its own arguments.
    using AnyFunction = void (*)();
    static_assert(sizeof(SurfaceListener) == 2 * sizeof(AnyFunction));
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-const-cast): it is only read
    auto* functions = reinterpret_cast<AnyFunction*>(const_cast<SurfaceListener*>(&listener));
    wl_proxy_add_listener(surface, functions, data);
}

void setSize(wl_proxy* surface, std::uint32_t width, std::uint32_t height) {
    ask(surface, SurfaceRequest::setSize, width, height);
}

void setAnchor(wl_proxy* surface, std::uint32_t edges) {
    ask(surface, SurfaceRequest::setAnchor, edges);
}

void setExclusiveZone(wl_proxy* surface, std::int32_t zone) {
    ask(surface, SurfaceRequest::setExclusiveZone, zone);
}

void setMargin(wl_proxy* surface, std::int32_t top, std::int32_t right, std::int32_t bottom,
               std::int32_t left) {
    ask(surface, SurfaceRequest::setMargin, top, right, bottom, left);
}

void setKeyboard(wl_proxy* surface, Keyboard keyboard) {
    ask(surface, SurfaceRequest::setKeyboard, static_cast<std::uint32_t>(keyboard));
}

void acknowledge(wl_proxy* surface, std::uint32_t serial) {
    ask(surface, SurfaceRequest::acknowledge, serial);
}

void setLayer(wl_proxy* surface, Layer layer) {
    if (wl_proxy_get_version(surface) >= versionOfSetLayer)
        ask(surface, SurfaceRequest::setLayer, static_cast<std::uint32_t>(layer));
}

void destroySurface(wl_proxy* surface) {
    ask(surface, SurfaceRequest::destroy, Ending::destroys);
}

} // namespace vantel::layershell
