#pragma once

#include "core/WidgetSnapshot.h"

namespace vantel {

/// How old a snapshot is, in whole hours: fresh below 6, aging below 48, then stale. One from the future is
/// fresh.
struct Staleness {
    enum class Kind { fresh, aging, stale };

    Kind kind = Kind::fresh;
    std::int64_t hours = 0; ///< of age, for `aging`; else 0

    /// Raises a fatal error when the age is no number of hours, which no real dates can cause.
    Staleness(const WidgetSnapshot& snapshot, Instant at);

    bool operator==(const Staleness&) const = default;
};

} // namespace vantel
