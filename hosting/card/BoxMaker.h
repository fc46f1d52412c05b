#pragma once

#include "hosting/ViewText.h"
#include "hosting/card/Box.h"

namespace vantel::card {

/// What turns elements into boxes.
struct BoxContext {
    const Formats& formats;
    const Appearance& appearance;
    ResolvedColor primary; ///< what primary text is drawn in
    TerminalColors colors = TerminalColors::none;
    Instant now; ///< where a time that is left is counted from
};

BoxPointer makeBox(const Element& element, const BoxContext& context);

} // namespace vantel::card
