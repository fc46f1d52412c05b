#pragma once

#include "platform/Instant.h"

#include <optional>
#include <span>

namespace vantel::scene {

/// The next moment after `now` at which one of the times left reads differently: at each whole minute before
/// its end, and in the last minute at each second. Absent when all are over.
std::optional<Instant> nextTick(std::span<const Instant> countdowns, Instant now);

} // namespace vantel::scene
