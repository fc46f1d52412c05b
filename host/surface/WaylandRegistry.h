#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <wayland-client-core.h>

struct wl_registry;

namespace vantel {

/// Something that a compositor offers.
struct WaylandGlobal {
    std::string interface;
    std::uint32_t name;
    std::uint32_t version;
};

/// What a compositor offers at the moment. Asks it when made, and waits for the answer on a queue of its own,
/// so that nobody else's events are touched.
class WaylandRegistry {
public:
    explicit WaylandRegistry(wl_display* display);
    ~WaylandRegistry();
    WaylandRegistry(const WaylandRegistry&) = delete;
    WaylandRegistry& operator=(const WaylandRegistry&) = delete;

    const std::vector<WaylandGlobal>& globals() const { return m_globals; }
    std::optional<WaylandGlobal> find(std::string_view interface) const;

    /// An object for something that is offered, in a version that both sides know. Its events come to the
    /// queue of this registry until it is given to another one.
    void* bind(const WaylandGlobal& global, const wl_interface& interface, std::uint32_t newestVersion) const;

    /// Waits until everything that was asked for so far is answered.
    void wait() const;

private:
    wl_display* m_display;
    wl_event_queue* m_queue;
    wl_registry* m_registry;
    std::vector<WaylandGlobal> m_globals;
};

} // namespace vantel
