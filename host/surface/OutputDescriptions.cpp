#include "host/surface/OutputDescriptions.h"

#include "host/surface/WaylandRegistry.h"

#include <memory>
#include <vector>

#include <wayland-client-protocol.h>

namespace vantel {

namespace {

constexpr std::uint32_t versionOfOutputNames = 4;

/// One output while it is asked.
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

using Answers = std::vector<std::unique_ptr<OutputAnswer>>;

Answers ask(const WaylandRegistry& registry) {
    Answers answers;
    for (const WaylandGlobal& global : registry.globals()) {
        if (global.interface != wl_output_interface.name || global.version < versionOfOutputNames)
            continue;
        void* output = registry.bind(global, wl_output_interface, versionOfOutputNames);
        answers.push_back(std::make_unique<OutputAnswer>(OutputAnswer{static_cast<wl_output*>(output)}));
        wl_output_add_listener(answers.back()->output, &outputListener, answers.back().get());
    }
    registry.wait();
    return answers;
}

} // namespace

std::string outputSerial(std::string_view description, std::string_view make, std::string_view model,
                         std::string_view name) {
    const std::string beginning = std::string(make) + ' ' + std::string(model) + ' ';
    const std::string end = " (" + std::string(name);
    const auto last = description.rfind(end);
    if (!description.starts_with(beginning) || last == std::string_view::npos || last < beginning.size())
        return {};
    return std::string(description.substr(beginning.size(), last - beginning.size()));
}

std::map<std::string, std::string> describeOutputs() {
    std::map<std::string, std::string> descriptions;
    wl_display* display = wl_display_connect(nullptr);
    if (display == nullptr)
        return descriptions;
    {
        const WaylandRegistry registry(display);
        for (const auto& answer : ask(registry)) {
            descriptions[answer->name] = answer->description;
            wl_output_destroy(answer->output);
        }
    }
    wl_display_disconnect(display);
    return descriptions;
}

} // namespace vantel
