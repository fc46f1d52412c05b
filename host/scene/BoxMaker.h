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

/// The boxes of a card's content and of all inside it, without the room that it asks for at the edges of the
/// card.
BoxPointer makeOutermostBox(const Element& content, const BoxContext& context);

} // namespace vantel::scene
