#pragma once

#include "host/scene/Box.h"
#include "host/scene/Scene.h"

namespace vantel::scene {

/// What is gathered as boxes are made.
struct BoxContext {
    const SceneContext& scene;
    ShapedTexts& texts;
    std::vector<Instant>& countdowns; ///< the moments that times left count down to
};

/// The boxes of an element and of all inside it.
BoxPointer makeBox(const Element& element, const BoxContext& context);

} // namespace vantel::scene
