#pragma once

namespace vantel::scene {

/// Lets assistive technology know cards, and what is on them, by their roles and actions. Only the first call
/// does anything.
void installSceneAccessibility();

} // namespace vantel::scene
