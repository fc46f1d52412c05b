#include "hosting/Intent.h"

namespace vantel {

std::optional<std::string> IntentCall::parameter(const std::string& parameterName) const {
    for (const auto& [key, value] : parameters)
        if (key == parameterName)
            return value;
    return std::nullopt;
}

} // namespace vantel
