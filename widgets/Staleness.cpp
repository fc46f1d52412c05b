#include "widgets/Staleness.h"

#include "platform/CheckedMath.h"
#include "platform/FatalError.h"

namespace vantel {

namespace {

constexpr std::int64_t agingFrom = 6;
constexpr std::int64_t staleFrom = 48;

std::int64_t wholeHours(Seconds age) {
    const auto hours = truncatedToInteger(age / std::chrono::hours(1));
    if (!hours)
        fatalError("The age of the snapshot is no number of hours.");
    return *hours;
}

} // namespace

Staleness::Staleness(const WidgetSnapshot& snapshot, Instant at) {
    const std::int64_t age = wholeHours(at - snapshot.generatedAt);
    if (age >= staleFrom) {
        kind = Kind::stale;
    } else if (age >= agingFrom) {
        kind = Kind::aging;
        hours = age;
    }
}

} // namespace vantel
