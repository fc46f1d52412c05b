#pragma once

#include "widgets/focus/FocusRules.h"

namespace vantel {

Element focusMediumView(const FocusInput& input, const ViewContext& context);

} // namespace vantel
