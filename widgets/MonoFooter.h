#pragma once

#include "hosting/Element.h"

#include <optional>
#include <string>

namespace vantel {

/// The last line of a widget under a hairline, with an optional second text at its trailing end.
Element monoFooter(std::string leading, std::optional<std::string> trailing = std::nullopt);

} // namespace vantel
