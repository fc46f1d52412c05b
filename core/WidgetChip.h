#pragma once

#include <string>

namespace vantel {

/// A short label for something that lasts all of today.
struct WidgetChip {
    std::string text;

    bool operator==(const WidgetChip&) const = default;
};

} // namespace vantel
