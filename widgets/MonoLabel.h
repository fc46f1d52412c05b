#pragma once

#include "hosting/Element.h"
#include "platform/Formats.h"

namespace vantel {

/// The caption style of all widget headings: small, bold, monospaced capitals.
Element monoLabel(std::string_view text, Color color, const Formats& formats);

} // namespace vantel
