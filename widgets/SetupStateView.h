#pragma once

#include "hosting/Element.h"
#include "platform/Formats.h"

namespace vantel {

/// What a widget shows before the companion application has written a snapshot.
Element setupStateView(const Formats& formats);

} // namespace vantel
