#pragma once

#include "host/surface/CompositorProbe.h"

#include <expected>
#include <string>

namespace vantel {

/// What the widgets stand on: windows of the X server, layers of a Wayland compositor, or whatever the user
/// told the toolkit to draw on.
enum class BackEnd { x11, wayland, toolkit };

/// What the user asks for on the command line.
enum class WantedBackEnd { automatic, x11, wayland };

/// What there is to choose from.
struct DisplayFacts {
    enum class XServer { none, silent, answering };
    enum class ToolkitPart { missing, installed };

    WantedBackEnd wanted = WantedBackEnd::automatic;
    std::string platform = {}; ///< the toolkit's environment variable
    Compositor compositor = Compositor::none;
    ToolkitPart waylandPart = ToolkitPart::installed; ///< what the toolkit needs to talk to compositors
    XServer xServer = XServer::none;
};

enum class BackEndReason {
    commandLine,      ///< the user asked for it
    platformVariable, ///< the user told the toolkit
    compositorLayers, ///< the compositor has layers
    noCompositor,     ///< this is an X11 session
    noLayers,         ///< the compositor has no layers, and an X server runs beside it
    noWaylandPart     ///< the toolkit cannot talk to the compositor, and an X server runs beside it
};

enum class BackEndProblem {
    noDisplay,     ///< neither an X server nor a compositor
    noXServer,     ///< the X server was asked for
    silentXServer, ///< it does not answer
    noCompositor,  ///< layers were asked for
    noLayers,      ///< layers were asked for, or no X server runs beside the compositor
    noWaylandPart  ///< the same, of the toolkit
};

/// What was chosen, and why.
struct BackEndChoice {
    BackEnd backEnd;
    BackEndReason reason;

    bool operator==(const BackEndChoice&) const = default;
};

/// Layers where a compositor offers them; else the X server, in Wayland sessions too, where an ordinary
/// window could place itself nowhere. What the user asks for on the command line stands; what the user told
/// the toolkit does too, but for Wayland, which many sessions ask of all programs alike.
std::expected<BackEndChoice, BackEndProblem> chooseBackEnd(const DisplayFacts& facts);

/// For people, to be translated: "the compositor offers layers of the desktop".
const char* sentenceKey(BackEndReason reason);
const char* sentenceKey(BackEndProblem problem);

} // namespace vantel
