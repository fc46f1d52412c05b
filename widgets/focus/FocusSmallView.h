#pragma once

#include "widgets/focus/FocusRules.h"

namespace vantel {

Element focusSmallView(const FocusInput& input, const ViewContext& context);

} // namespace vantel
