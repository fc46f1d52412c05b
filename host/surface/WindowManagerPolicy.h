#pragma once

#include <string>

namespace vantel {

/// How a card's window makes itself known to a window manager so that it stays below all others.
enum class WindowMode {
    normalBelow,     ///< a normal window that asks to be kept below and out of lists
    dockBelow,       ///< a dock that reserves no room and asks to be kept below
    overrideRedirect ///< not managed at all, and lowered
};

/// What a window manager says of itself.
struct WindowManager {
    enum class Presence { none, running };
    enum class Below { unsupported, supported };

    Presence presence = Presence::none;
    Below below = Below::unsupported; ///< whether it keeps windows below others on request
    std::string name;

    bool operator==(const WindowManager&) const = default;
};

/// The mode that was found to work best with a window manager: stays below, is not raised by a click, is not
/// covered by a click on the desktop, and where possible survives "show desktop". Without any window manager
/// a normal window is as good as another, and ready for one that starts later.
WindowMode windowMode(const WindowManager& manager);

/// Whether a window manager arranges windows beside each other, so that an unmanaged one lies below them all.
bool isTiling(const WindowManager& manager);

/// What becomes of a card, in its mode, when the user wants to see the desktop.
enum class ShowDesktop {
    keeps,
    hides,
    unknown ///< nobody has tried
};

/// What was found by trying.
ShowDesktop onShowDesktop(const WindowManager& manager);

} // namespace vantel
