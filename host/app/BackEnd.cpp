#include "host/app/BackEnd.h"

#include "platform/TextKey.h"

#include <optional>

namespace vantel {

namespace {

using Choice = std::expected<BackEndChoice, BackEndProblem>;

Choice onX11(const DisplayFacts& facts, BackEndReason reason, BackEndProblem withoutServer) {
    switch (facts.xServer) {
    case DisplayFacts::XServer::answering:
        return BackEndChoice{BackEnd::x11, reason};
    case DisplayFacts::XServer::silent:
        return std::unexpected(BackEndProblem::silentXServer);
    case DisplayFacts::XServer::none:
        break;
    }
    return std::unexpected(withoutServer);
}

/// What keeps the widgets from standing on layers.
std::optional<BackEndProblem> obstacle(const DisplayFacts& facts) {
    if (facts.compositor == Compositor::none)
        return BackEndProblem::noCompositor;
    if (facts.compositor == Compositor::withoutLayers)
        return BackEndProblem::noLayers;
    if (facts.waylandPart == DisplayFacts::ToolkitPart::missing)
        return BackEndProblem::noWaylandPart;
    return std::nullopt;
}

Choice onWayland(const DisplayFacts& facts) {
    if (const auto problem = obstacle(facts))
        return std::unexpected(*problem);
    return BackEndChoice{BackEnd::wayland, BackEndReason::commandLine};
}

Choice whatFits(const DisplayFacts& facts) {
    const auto problem = obstacle(facts);
    if (!problem)
        return BackEndChoice{BackEnd::wayland, BackEndReason::compositorLayers};
    if (*problem == BackEndProblem::noLayers)
        return onX11(facts, BackEndReason::noLayers, *problem);
    if (*problem == BackEndProblem::noWaylandPart)
        return onX11(facts, BackEndReason::noWaylandPart, *problem);
    return onX11(facts, BackEndReason::noCompositor, BackEndProblem::noDisplay);
}

bool isUsersChoice(const std::string& platform) {
    return !platform.empty() && !platform.starts_with("wayland");
}

} // namespace

Choice chooseBackEnd(const DisplayFacts& facts) {
    if (facts.wanted == WantedBackEnd::x11)
        return onX11(facts, BackEndReason::commandLine, BackEndProblem::noXServer);
    if (facts.wanted == WantedBackEnd::wayland)
        return onWayland(facts);
    if (isUsersChoice(facts.platform)) {
        const bool isX11 = facts.platform.starts_with("xcb");
        return BackEndChoice{isX11 ? BackEnd::x11 : BackEnd::toolkit, BackEndReason::platformVariable};
    }
    return whatFits(facts);
}

const char* sentenceKey(BackEndReason reason) {
    switch (reason) {
    case BackEndReason::commandLine:
        return textKey("the command line asks for it");
    case BackEndReason::platformVariable:
        return textKey("QT_QPA_PLATFORM asks for it");
    case BackEndReason::compositorLayers:
        return textKey("the compositor offers layers of the desktop");
    case BackEndReason::noCompositor:
        return textKey("no Wayland compositor answers here");
    case BackEndReason::noLayers:
        return textKey("the compositor offers no layers of the desktop (zwlr_layer_shell_v1)");
    case BackEndReason::noWaylandPart:
        return textKey("the part of Qt for Wayland is not installed (package qt6-wayland)");
    }
    return "";
}

const char* sentenceKey(BackEndProblem problem) {
    switch (problem) {
    case BackEndProblem::noDisplay:
        return textKey("there is no display here (neither DISPLAY nor WAYLAND_DISPLAY leads to one)");
    case BackEndProblem::noXServer:
        return textKey("there is no X server here (DISPLAY is not set)");
    case BackEndProblem::silentXServer:
        return textKey("the X server that DISPLAY names does not answer");
    case BackEndProblem::noCompositor:
        return textKey("no Wayland compositor answers here (WAYLAND_DISPLAY)");
    case BackEndProblem::noLayers:
        return textKey(
            "this Wayland compositor offers no layers of the desktop (zwlr_layer_shell_v1); the widgets "
            "need them, or an X server (Xwayland)");
    case BackEndProblem::noWaylandPart:
        return textKey("Qt lacks its part for Wayland (package qt6-wayland)");
    }
    return "";
}

} // namespace vantel
