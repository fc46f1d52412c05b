#pragma once

#include "core/WidgetSnapshot.h"

#include <vector>

namespace vantel {

/// A moment at which the widgets change, and why. Several may fall on one instant.
struct PlannedMoment {
    enum class Reason { now, eventIsNear, eventStarts, eventEnds, recapBegins };

    Instant date;
    Reason reason = Reason::now;
    const WidgetEvent* event =
        nullptr; ///< of the snapshot that was planned for; null when no event is the reason

    bool operator==(const PlannedMoment&) const = default;
};

/// The moments from `now` until the next midnight, in ascending order: now; five minutes before, at the start
/// and at the end of each event, where these lie ahead and today; and on a Friday, where it lies ahead, the
/// hour at which the weekly recap begins. `snapshot` may be null.
std::vector<PlannedMoment> plannedMoments(const WidgetSnapshot* snapshot, Instant now,
                                          const Calendar& calendar);

} // namespace vantel
