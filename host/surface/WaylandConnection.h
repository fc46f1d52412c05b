#pragma once

#include <QRegion>
#include <optional>

class QScreen;
class QWindow;
struct wl_compositor;
struct wl_display;
struct wl_output;
struct wl_proxy;
struct wl_surface;

namespace vantel {

/// The application's connection to a Wayland compositor that has layers, in the few words that desktop
/// windows need. Objects that are made here are heard by the application's own event loop. The connection
/// ends with the application.
class WaylandConnection {
public:
    /// Absent when the application does not run on Wayland, or the compositor has no layers.
    static std::optional<WaylandConnection> ofApplication();

    wl_proxy* layerShell() const { return m_layerShell; }

    /// The surface of a window that was created, or null.
    static wl_surface* surfaceOf(QWindow& window);

    /// The output of a screen; null for the stand-in that the toolkit keeps while there is none.
    static wl_output* outputOf(QScreen& screen);

    /// The part of a surface that clicks go to; with its next commit.
    void setInputRegion(wl_surface* surface, const QRegion& region) const;

    /// Takes back the whole scale that the toolkit may have given to a surface that it did not show yet. With
    /// a fractional scale it leaves that standing, and the compositor ends the program for the sizes that
    /// follow.
    void forgetWholeScale(wl_surface* surface) const;

    static void commit(wl_surface* surface);

    /// Sends what was asked for.
    void flush() const;

private:
    explicit WaylandConnection(wl_display* display);

    wl_display* m_display;
    wl_compositor* m_compositor = nullptr;
    wl_proxy* m_layerShell = nullptr;
    bool m_hasFractionalScale = false; ///< as the toolkit sees it
};

} // namespace vantel
