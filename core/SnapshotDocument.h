#pragma once

#include "core/WidgetSnapshot.h"

#include <string>
#include <string_view>

namespace vantel {

/// Reads a snapshot document (see docs/format.md). The whole document must be valid JSON and every known key
/// what it should be; the first that is not, in the order of the records' fields, is reported. Unknown keys
/// are ignored, and any `version` is accepted here.
Result<WidgetSnapshot> decodeSnapshot(std::string_view bytes);

/// Writes a snapshot as one compact document. Fails for a number that is not finite and for a text that is
/// not UTF-8.
Result<std::string> encodeSnapshot(const WidgetSnapshot& snapshot);

} // namespace vantel
