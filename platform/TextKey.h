#pragma once

namespace vantel {

/// Marks a text that is translated where it is shown, not where it stands.
constexpr const char* textKey(const char* key) {
    return key;
}

} // namespace vantel
