#pragma once

#include "host/surface/LayerShellProtocol.h"
#include "host/surface/WaylandConnection.h"

#include <QPoint>
#include <QRegion>
#include <QSize>
#include <functional>

class QWindow;

namespace vantel {

/// How a window stands on its output.
struct LayerState {
    layershell::Layer layer = layershell::Layer::bottom;
    layershell::Keyboard keyboard = layershell::Keyboard::none;
    QPoint place = {};  ///< of its upper left corner, from that of the output, in logical pixels
    QSize size = {};    ///< in logical pixels
    QRegion input = {}; ///< the part that clicks go to, in the window's logical pixels

    bool operator==(const LayerState&) const = default;
};

/// Makes a window that was created without a role, and was not shown yet, a layer surface. It ends before the
/// window's surface does, which goes when the window is hidden.
///
/// Places are distances from the whole output and not from what panels leave of it (the surface asks to
/// disregard the room that others reserve): so a placement means the same as on X11, and nothing moves when a
/// panel comes.
class LayerRole {
public:
    struct Heard {
        std::function<void()> configured; ///< the window may be shown; once
        std::function<void()> closed;     ///< the compositor took the surface away; it shows nothing any more
    };

    LayerRole(const WaylandConnection& connection, QWindow& window, wl_output* output, LayerState state,
              Heard heard);
    ~LayerRole();
    LayerRole(const LayerRole&) = delete;
    LayerRole& operator=(const LayerRole&) = delete;

    const LayerState& state() const { return m_state; }

    /// Tells the compositor what differs.
    void change(const LayerState& state);

private:
    static void takeConfigure(void* role, wl_proxy* surface, std::uint32_t serial, std::uint32_t width,
                              std::uint32_t height);
    static void takeClosed(void* role, wl_proxy* surface);
    static constexpr layershell::SurfaceListener listener{takeConfigure, takeClosed};

    void send(const LayerState& state, const LayerState& before);
    void commit() const;

    const WaylandConnection& m_connection;
    wl_surface* m_surface;
    LayerState m_state;
    Heard m_heard;
    wl_proxy* m_role;
    bool m_isConfigured = false;
};

} // namespace vantel
