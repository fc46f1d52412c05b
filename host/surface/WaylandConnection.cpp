#include "host/surface/WaylandConnection.h"

#include "host/surface/LayerShellProtocol.h"
#include "host/surface/WaylandRegistry.h"

#include <QGuiApplication>
#include <QLibraryInfo>
#include <QScreen>
#include <QVersionNumber>
#include <QWindow>
#include <utility>

#include <qpa/qplatformnativeinterface.h>
#include <wayland-client-protocol.h>

namespace vantel {

namespace {

wl_display* displayOfApplication() {
    if (!QGuiApplication::platformName().startsWith(u"wayland"))
        return nullptr;
    auto* native = QGuiApplication::platformNativeInterface();
    return static_cast<wl_display*>(native->nativeResourceForIntegration("wl_display"));
}

/// An object whose events go where the application's own go.
template <typename Object>
Object* bindForApplication(const WaylandRegistry& registry, const char* name, const wl_interface& interface,
                           std::uint32_t newestVersion) {
    const auto global = registry.find(name);
    if (!global)
        return nullptr;
    void* object = registry.bind(*global, interface, newestVersion);
    wl_proxy_set_queue(static_cast<wl_proxy*>(object), nullptr);
    return static_cast<Object*>(object);
}

/// Whether the toolkit tells a size beside each picture, as it does where it can, instead of a whole scale.
bool isFractionalScaleUsed(const WaylandRegistry& registry) {
    return QLibraryInfo::version() >= QVersionNumber(6, 5) &&
           registry.find("wp_fractional_scale_manager_v1") && registry.find("wp_viewporter") &&
           QGuiApplication::highDpiScaleFactorRoundingPolicy() ==
               Qt::HighDpiScaleFactorRoundingPolicy::PassThrough;
}

} // namespace

WaylandConnection::WaylandConnection(wl_display* display)
    : m_display(display) {
    const WaylandRegistry registry(display);
    m_compositor =
        bindForApplication<wl_compositor>(registry, wl_compositor_interface.name, wl_compositor_interface, 1);
    m_layerShell = bindForApplication<wl_proxy>(registry, layershell::globalName,
                                                layershell::shellInterface(), layershell::newestVersion);
    m_hasFractionalScale = isFractionalScaleUsed(registry);
}

std::optional<WaylandConnection> WaylandConnection::ofApplication() {
    wl_display* display = displayOfApplication();
    if (display == nullptr)
        return std::nullopt;
    WaylandConnection connection(display);
    if (connection.m_compositor == nullptr || connection.m_layerShell == nullptr)
        return std::nullopt;
    return connection;
}

wl_surface* WaylandConnection::surfaceOf(QWindow& window) {
    auto* native = QGuiApplication::platformNativeInterface();
    return static_cast<wl_surface*>(native->nativeResourceForWindow("surface", &window));
}

wl_output* WaylandConnection::outputOf(QScreen& screen) {
    auto* native = QGuiApplication::platformNativeInterface();
    return static_cast<wl_output*>(native->nativeResourceForScreen("output", &screen));
}

void WaylandConnection::setInputRegion(wl_surface* surface, const QRegion& region) const {
    wl_region* input = wl_compositor_create_region(m_compositor);
    for (const QRect& rectangle : region)
        wl_region_add(input, rectangle.x(), rectangle.y(), rectangle.width(), rectangle.height());
    wl_surface_set_input_region(surface, input);
    wl_region_destroy(input);
}

void WaylandConnection::forgetWholeScale(wl_surface* surface) const {
    if (m_hasFractionalScale)
        wl_surface_set_buffer_scale(surface, 1);
}

void WaylandConnection::commit(wl_surface* surface) {
    wl_surface_commit(surface);
}

void WaylandConnection::flush() const {
    wl_display_flush(m_display);
}

} // namespace vantel
