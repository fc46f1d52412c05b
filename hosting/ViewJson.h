#pragma once

#include "hosting/WidgetView.h"

#include <string>

namespace vantel {

/// A view as one compact JSON object, the form that `vantelctl view --json` prints. Keys that hold their
/// default are left out. Fails only for what has no JSON form, such as a text that is not UTF-8.
Result<std::string> viewJson(const WidgetView& view);

} // namespace vantel
