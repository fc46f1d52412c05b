#include "host/surface/OutputProbe.h"

#include "host/surface/LayerShellProtocol.h"
#include "host/surface/WaylandRegistry.h"

#include <algorithm>
#include <memory>

#include <wayland-client-protocol.h>

namespace vantel {

namespace {

constexpr std::uint32_t versionOfOutputNames = 4;

/// One output while it is asked.
struct Answer {
    wl_output* output = nullptr;
    wl_surface* surface = nullptr;
    wl_proxy* role = nullptr;
    std::string name = {};
    ProbedOutput told = {};
};

using Answers = std::vector<std::unique_ptr<Answer>>;

void takeName(void* answer, wl_output*, const char* name) {
    static_cast<Answer*>(answer)->name = name;
}

void takeDescription(void* answer, wl_output*, const char* description) {
    static_cast<Answer*>(answer)->told.description = description;
}

void takeSize(void* answer, wl_proxy*, std::uint32_t, std::uint32_t width, std::uint32_t height) {
    static_cast<Answer*>(answer)->told.usable = QSize(static_cast<int>(width), static_cast<int>(height));
}

constexpr wl_output_listener outputListener{
    .geometry = [](void*, wl_output*, int, int, int, int, int, const char*, const char*, int) {},
    .mode = [](void*, wl_output*, std::uint32_t, int, int, int) {},
    .done = [](void*, wl_output*) {},
    .scale = [](void*, wl_output*, int) {},
    .name = takeName,
    .description = takeDescription};

constexpr layershell::SurfaceListener sizeListener{takeSize, [](void*, wl_proxy*) {}};

Answers askForNames(const WaylandRegistry& registry) {
    Answers answers;
    for (const WaylandGlobal& global : registry.globals()) {
        if (global.interface != wl_output_interface.name || global.version < versionOfOutputNames)
            continue;
        Answer& answer = *answers.emplace_back(std::make_unique<Answer>());
        answer.output =
            static_cast<wl_output*>(registry.bind(global, wl_output_interface, versionOfOutputNames));
        wl_output_add_listener(answer.output, &outputListener, &answer);
    }
    registry.wait();
    return answers;
}

/// A surface that wants to fill the output is told how much of it there is. It never shows anything.
void askForSize(Answer& answer, wl_compositor* compositor, wl_proxy* shell) {
    using namespace layershell;
    answer.surface = wl_compositor_create_surface(compositor);
    answer.role =
        getLayerSurface(shell, answer.surface, answer.output, Layer::background, "vantel-widgets-probe");
    listen(answer.role, sizeListener, &answer);
    setAnchor(answer.role, topEdge | bottomEdge | leftEdge | rightEdge);
    wl_surface_commit(answer.surface);
}

void askForSizes(const Answers& answers, const WaylandRegistry& registry) {
    const auto compositor = registry.find(wl_compositor_interface.name);
    const auto shell = registry.find(layershell::globalName);
    if (!compositor || !shell)
        return;
    auto* surfaces = static_cast<wl_compositor*>(registry.bind(*compositor, wl_compositor_interface, 1));
    auto* layers = static_cast<wl_proxy*>(
        registry.bind(*shell, layershell::shellInterface(), layershell::newestVersion));
    for (const auto& answer : answers)
        askForSize(*answer, surfaces, layers);
    registry.wait();
    for (const auto& answer : answers) {
        layershell::destroySurface(answer->role);
        wl_surface_destroy(answer->surface);
    }
    layershell::destroyShell(layers);
    wl_compositor_destroy(surfaces);
}

std::map<std::string, ProbedOutput> ask(wl_display* display) {
    const WaylandRegistry registry(display);
    const Answers answers = askForNames(registry);
    askForSizes(answers, registry);
    std::map<std::string, ProbedOutput> outputs;
    for (const auto& answer : answers) {
        outputs[answer->name] = answer->told;
        wl_output_release(answer->output);
    }
    return outputs;
}

} // namespace

std::map<std::string, ProbedOutput> probeOutputs() {
    wl_display* display = wl_display_connect(nullptr);
    if (display == nullptr)
        return {};
    auto outputs = ask(display);
    wl_display_disconnect(display);
    return outputs;
}

std::string outputSerial(std::string_view description, std::string_view make, std::string_view model,
                         std::string_view name) {
    const std::string beginning = std::string(make) + ' ' + std::string(model) + ' ';
    const std::string end = " (" + std::string(name);
    const auto last = description.rfind(end);
    if (!description.starts_with(beginning) || last == std::string_view::npos || last < beginning.size())
        return {};
    return std::string(description.substr(beginning.size(), last - beginning.size()));
}

QRect withoutPanels(const QRect& screen, QSize usable) {
    const int sides = std::max(0, screen.width() - usable.width());
    const int ends = std::max(0, screen.height() - usable.height());
    const QRect inside = screen.adjusted(sides, ends, -sides, -ends);
    return inside.isEmpty() ? screen : inside;
}

} // namespace vantel
