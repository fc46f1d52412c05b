#pragma once

#include "host/scene/Scene.h"

#include <optional>
#include <vector>

namespace vantel::scene {

/// Where a scene has to be drawn anew after another one of the same card and look, in points; absent when
/// that may be everywhere, as where letters with marks change, which may reach far beyond their rectangle.
std::optional<std::vector<QRectF>> differences(const Scene& before, const Scene& after);

} // namespace vantel::scene
