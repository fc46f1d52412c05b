#pragma once

namespace vantel {

/// Whether a Wayland compositor answers, and lets surfaces stand on the desktop's own layers.
enum class Compositor { none, withoutLayers, withLayers };

/// Asks the compositor of the session, before there is an application. Waits for its answer.
Compositor askCompositor();

} // namespace vantel
