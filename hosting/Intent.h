#pragma once

#include "platform/Clock.h"
#include "platform/Error.h"
#include "platform/Uuid.h"

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vantel {

/// An action that a button carries: which intent, and the values of its parameters in their order.
struct IntentCall {
    std::string name;
    std::vector<std::pair<std::string, std::string>> parameters;

    bool operator==(const IntentCall&) const = default;

    /// The value of a parameter; absent when the call has none of that name.
    std::optional<std::string> parameter(const std::string& parameterName) const;
};

/// What an intent may ask of its surroundings.
struct IntentContext {
    const Clock& clock;
    UuidSource& identifiers;
};

/// An action that a bundle offers. `perform` blocks (on files and their locks) and belongs on a worker
/// thread; each call is one run. A failure is the user's to hear of.
struct IntentDeclaration {
    std::string name;
    std::string title; ///< a text key
    bool isDiscoverable;
    std::function<Result<void>(const IntentCall&, const IntentContext&)> perform;
};

} // namespace vantel
