#pragma once

#include "host/scene/Box.h"
#include "host/scene/Scene.h"

namespace vantel::scene {

/// The boxes of an element and of all inside it. Moments that times left count down to are added to
/// `countdowns`. The boxes keep references to the context's look.
BoxPointer makeBox(const Element& element, const SceneContext& context, std::vector<Instant>& countdowns);

} // namespace vantel::scene
