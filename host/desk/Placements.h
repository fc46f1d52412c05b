#pragma once

#include "host/desk/Placement.h"
#include "platform/Error.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace vantel {

/// The version of the document that this program writes, and the only one that it reads.
inline constexpr std::int64_t placementsVersion = 1;

/// Every widget that the user has put somewhere, in the order in which they came, those included whose
/// monitor is away or whose kind this program does not know.
///
/// The document:
///
///     {"version":1,"placements":[{"id":"E621E1F8-…","kind":"VantelFocusWidget","family":"systemMedium",
///      "monitor":{"manufacturer":"…","model":"…","serial":"…","name":"DP-1"},
///      "frame":{"x":0,"y":0,"width":1920,"height":1080},
///      "corner":"topRight","horizontal":24,"vertical":52}]}
using Placements = std::vector<Placement>;

/// Reads a document. Of two placements with one identifier the document is not one that this program wrote:
/// it does not decode.
Result<Placements> parsePlacements(std::string_view bytes);

Result<std::string> writePlacements(const Placements& placements);

} // namespace vantel
