#pragma once

#include "core/WidgetRecap.h"
#include "hosting/Element.h"
#include "platform/Formats.h"

namespace vantel {

/// The week in numbers, which takes the task list's place from Friday afternoon on.
Element recapColumn(const WidgetRecap& recap, const Formats& formats);

/// "+37 vs last week", "-4 vs last week"; nothing when the two are equal. Exact for any two counts.
std::string recapDelta(std::int64_t now, std::int64_t before, const Formats& formats);

} // namespace vantel
