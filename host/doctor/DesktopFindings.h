#pragma once

#include "host/app/BackEnd.h"
#include "host/doctor/Finding.h"
#include "host/surface/WindowManagerPolicy.h"
#include "host/surface/WindowSystem.h"
#include "platform/Formats.h"

#include <optional>

namespace vantel {

/// What an X server shows of its session.
struct SessionOnX11 {
    WindowManager manager = {};
    Blending blending = Blending::none;
};

/// What the widgets could stand on.
struct DesktopFacts {
    std::string platform = {};       ///< what the user told the toolkit to draw on; empty for nothing
    std::string display = {};        ///< the name of the X server; empty for none
    std::string waylandDisplay = {}; ///< the name of the compositor; empty for none

    /// What the program would choose now.
    std::expected<BackEndChoice, BackEndProblem> choice = std::unexpected(BackEndProblem::noDisplay);

    /// Absent where no X server answers in time.
    std::optional<SessionOnX11> x11 = {};
};

/// What the widgets would stand on and why, and what the window manager does for them.
Findings desktopFindings(const DesktopFacts& facts, const Formats& formats);

} // namespace vantel
