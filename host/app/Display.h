#pragma once

#include "host/app/Options.h"

#include <optional>
#include <string>

namespace vantel {

/// Tells the toolkit what to draw on.
inline constexpr const char* platformVariable = "QT_QPA_PLATFORM";

/// Chooses what the toolkit draws on, by its environment variable, before there is an application object:
/// memory for pictures; for widgets the X server, in Wayland sessions too, where an ordinary window could
/// place itself nowhere. A choice of the user's stands, but for Wayland. Returns why there is nothing to draw
/// on, for people.
std::optional<std::string> chooseDisplay(Task task);

} // namespace vantel
