#pragma once

#include "hosting/Element.h"
#include "platform/Formats.h"

#include <optional>
#include <string>

namespace vantel {

/// The pill that joins a meeting, by way of the companion application.
struct JoinCapsule {
    Url joinURL;
    std::optional<std::string> provider; ///< "Zoom", "Teams"
    bool compact;
    bool inverted; ///< light on a dark card
};

Element element(const JoinCapsule& capsule, const Formats& formats);

} // namespace vantel
