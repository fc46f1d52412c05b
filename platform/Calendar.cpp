#include "platform/Calendar.h"

namespace vantel {

std::optional<Instant> Calendar::adding(int days, int hours, Instant instant) const {
    const auto day = addingDays(days, instant);
    if (!day)
        return std::nullopt;
    return *day + std::chrono::hours(hours);
}

} // namespace vantel
