#include "host/surface/WaylandRegistry.h"

#include <algorithm>

#include <wayland-client-protocol.h>

namespace vantel {

namespace {

void take(void* globals, wl_registry*, std::uint32_t name, const char* interface, std::uint32_t version) {
    static_cast<std::vector<WaylandGlobal>*>(globals)->push_back({interface, name, version});
}

void forget(void* globals, wl_registry*, std::uint32_t name) {
    std::erase_if(*static_cast<std::vector<WaylandGlobal>*>(globals),
                  [name](const WaylandGlobal& each) { return each.name == name; });
}

constexpr wl_registry_listener listener{take, forget};

wl_registry* registryOf(wl_display* display, wl_event_queue* queue) {
    auto* wrapper = static_cast<wl_proxy*>(wl_proxy_create_wrapper(display));
    wl_proxy_set_queue(wrapper, queue);
    wl_registry* registry = wl_display_get_registry(reinterpret_cast<wl_display*>(wrapper));
    wl_proxy_wrapper_destroy(wrapper);
    return registry;
}

} // namespace

WaylandRegistry::WaylandRegistry(wl_display* display)
    : m_display(display)
    , m_queue(wl_display_create_queue(display))
    , m_registry(registryOf(display, m_queue)) {
    wl_registry_add_listener(m_registry, &listener, &m_globals);
    wait();
}

WaylandRegistry::~WaylandRegistry() {
    wl_registry_destroy(m_registry);
    wl_event_queue_destroy(m_queue);
}

std::optional<WaylandGlobal> WaylandRegistry::find(std::string_view interface) const {
    const auto found = std::ranges::find(m_globals, interface, &WaylandGlobal::interface);
    return found != m_globals.end() ? std::optional(*found) : std::nullopt;
}

void* WaylandRegistry::bind(const WaylandGlobal& global, const wl_interface& interface,
                            std::uint32_t newestVersion) const {
    return wl_registry_bind(m_registry, global.name, &interface, std::min(global.version, newestVersion));
}

void WaylandRegistry::wait() const {
    wl_display_roundtrip_queue(m_display, m_queue);
}

} // namespace vantel
