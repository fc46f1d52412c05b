#pragma once

#include "hosting/WidgetFamily.h"

#include <compare>
#include <string>

namespace vantel {

/// What decides a view: the kind of widget and its size. Two widgets with one key show the same.
struct WidgetKey {
    std::string kind;
    WidgetFamily family;

    auto operator<=>(const WidgetKey&) const = default;
};

} // namespace vantel
