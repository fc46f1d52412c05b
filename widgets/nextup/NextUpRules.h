#pragma once

#include "core/WidgetSnapshot.h"
#include "hosting/WidgetView.h"

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace vantel {

/// Events of a snapshot, which they must not outlive.
using EventList = std::vector<std::reference_wrapper<const WidgetEvent>>;

/// When an event is over: its end, or an hour after its start when the end is unknown.
Instant effectiveEnd(const WidgetEvent& event);

/// The events that are not over at `at`, by start; of equal starts in the snapshot's order.
EventList upcoming(const WidgetSnapshot& snapshot, Instant at);

/// Those of `upcoming` that start on the day of `at`.
EventList todaysEvents(const WidgetSnapshot& snapshot, Instant at, const Calendar& calendar);

/// The first of `upcoming` that starts later than `at`, on whatever day; null when there is none.
const WidgetEvent* nextEvent(const WidgetSnapshot& snapshot, Instant at);

/// Whether the first of today's events starts within the next five minutes; not when it starts right now.
bool isImminent(const EventList& today, Instant at);

/// "Tomorrow", or "Wed, Nov 19".
std::string nextDayLabel(const WidgetEvent& event, Instant relativeTo, const Calendar& calendar,
                         const Formats& formats);

/// "Tomorrow: Lab meeting"
std::string nextEventText(const WidgetEvent& event, Instant relativeTo, const ViewContext& context);

/// "Seminar room D0.11 · 3 open tasks linked". An empty location is a part all the same; without any part
/// there is no subtitle.
std::optional<std::string> subtitle(const WidgetEvent& event, const Formats& formats);

/// When the day's last event is over, or that the snapshot is too old to tell.
std::string footerText(const EventList& events, const WidgetSnapshot& snapshot, Instant at,
                       const ViewContext& context);

} // namespace vantel
