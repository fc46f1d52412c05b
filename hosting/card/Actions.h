#pragma once

#include "hosting/WidgetView.h"

#include <string>

namespace vantel::card {

/// What a click opens, then each link and button in reading order, one to a line.
std::string actionLines(const WidgetView& view, const Formats& formats);

} // namespace vantel::card
