#pragma once

#include <array>

namespace vantel {

/// What makes the toolkit leave our windows to us on Wayland: those that bypass the window manager get no
/// role of its own, and all keep the positions that they are given. Set before the application is made, and
/// meant for this program alone: programs that it starts get neither.
inline constexpr std::array waylandEnvironment{"QT_WAYLAND_USE_BYPASSWINDOWMANAGERHINT",
                                               "QT_WAYLAND_DISABLE_FIXED_POSITIONS"};

} // namespace vantel
