#include "host/surface/WaylandConnection.h"

#include "host/surface/LayerShellProtocol.h"
#include "host/surface/WaylandRegistry.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>
#include <utility>

#include <qpa/qplatformnativeinterface.h>
#include <wayland-client-protocol.h>

namespace vantel {

namespace {

constexpr std::uint32_t versionOfOutputNames = 4;

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

/// One output while it is asked what it is called.
struct OutputAnswer {
    wl_output* output;
    std::string name = {};
    std::string description = {};
};

void takeName(void* answer, wl_output*, const char* name) {
    static_cast<OutputAnswer*>(answer)->name = name;
}

void takeDescription(void* answer, wl_output*, const char* description) {
    static_cast<OutputAnswer*>(answer)->description = description;
}

constexpr wl_output_listener outputListener{
    .geometry = [](void*, wl_output*, int, int, int, int, int, const char*, const char*, int) {},
    .mode = [](void*, wl_output*, std::uint32_t, int, int, int) {},
    .done = [](void*, wl_output*) {},
    .scale = [](void*, wl_output*, int) {},
    .name = takeName,
    .description = takeDescription};

} // namespace

WaylandConnection::WaylandConnection(wl_display* display)
    : m_display(display) {
    const WaylandRegistry registry(display);
    m_compositor =
        bindForApplication<wl_compositor>(registry, wl_compositor_interface.name, wl_compositor_interface, 1);
    m_layerShell = bindForApplication<wl_proxy>(registry, layershell::globalName,
                                                layershell::shellInterface(), layershell::newestVersion);
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

void WaylandConnection::commit(wl_surface* surface) {
    wl_surface_commit(surface);
}

void WaylandConnection::flush() const {
    wl_display_flush(m_display);
}

OutputDescriptions WaylandConnection::describeOutputs() const {
    const WaylandRegistry registry(m_display);
    std::vector<std::unique_ptr<OutputAnswer>> answers;
    for (const WaylandGlobal& global : registry.globals()) {
        if (global.interface != wl_output_interface.name || global.version < versionOfOutputNames)
            continue;
        void* output = registry.bind(global, wl_output_interface, versionOfOutputNames);
        answers.push_back(std::make_unique<OutputAnswer>(OutputAnswer{static_cast<wl_output*>(output)}));
        wl_output_add_listener(answers.back()->output, &outputListener, answers.back().get());
    }
    registry.wait();
    OutputDescriptions descriptions;
    for (const auto& answer : answers) {
        descriptions[answer->name] = answer->description;
        wl_output_release(answer->output);
    }
    return descriptions;
}

} // namespace vantel
