#pragma once

#include "hosting/WidgetFamily.h"
#include "platform/Uuid.h"

#include <string>

namespace vantel {

/// Which monitor is meant, whatever it is plugged into. The name of its connector decides only where the rest
/// says too little.
struct MonitorIdentity {
    std::string manufacturer;
    std::string model;
    std::string serial;
    std::string name;

    auto operator<=>(const MonitorIdentity&) const = default;
};

/// The corner of its screen that a widget keeps its distance from.
enum class Corner { topLeft, topRight, bottomLeft, bottomRight };

/// How far a card is from the two edges of its screen that meet in its corner, in logical pixels.
struct Margins {
    int horizontal = 0;
    int vertical = 0;

    bool operator==(const Margins&) const = default;
};

/// Where a monitor was on the desktop, in logical pixels; all zeros where nobody has noted it.
struct MonitorFrame {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    bool operator==(const MonitorFrame&) const = default;
};

/// One widget on the desktop: which, how large and where. It belongs to one monitor and waits for it.
struct Placement {
    Uuid id = {};
    std::string kind = {};
    WidgetFamily family = WidgetFamily::systemSmall;
    MonitorIdentity monitor = {};
    MonitorFrame frame = {}; ///< of the monitor when the widget was put there
    Corner corner = Corner::topRight;
    Margins margins = {};

    bool operator==(const Placement&) const = default;
};

} // namespace vantel
