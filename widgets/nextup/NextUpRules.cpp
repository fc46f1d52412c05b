#include "widgets/nextup/NextUpRules.h"

#include "core/WidgetBuckets.h"
#include "widgets/Staleness.h"
#include "widgets/WidgetFormat.h"

#include <algorithm>
#include <ranges>

namespace vantel {

namespace {

constexpr Seconds usualLength(3600);
constexpr Seconds imminence(300);

} // namespace

Instant effectiveEnd(const WidgetEvent& event) {
    return event.end.value_or(event.start + usualLength);
}

EventList upcoming(const WidgetSnapshot& snapshot, Instant at) {
    EventList events;
    for (const WidgetEvent& event : snapshot.events)
        if (effectiveEnd(event) > at)
            events.emplace_back(event);
    std::ranges::stable_sort(events, {}, &WidgetEvent::start);
    return events;
}

EventList todaysEvents(const WidgetSnapshot& snapshot, Instant at, const Calendar& calendar) {
    EventList events = upcoming(snapshot, at);
    const Instant today = calendar.startOfDay(at);
    const Instant tomorrow = WidgetBuckets::nextMidnight(at, calendar);
    std::erase_if(events,
                  [&](const WidgetEvent& event) { return event.start < today || event.start >= tomorrow; });
    return events;
}

const WidgetEvent* nextEvent(const WidgetSnapshot& snapshot, Instant at) {
    const WidgetEvent* next = nullptr;
    for (const WidgetEvent& event : snapshot.events) {
        const bool isAhead = event.start > at && effectiveEnd(event) > at;
        if (isAhead && (next == nullptr || event.start < next->start))
            next = &event;
    }
    return next;
}

bool isImminent(const EventList& today, Instant at) {
    if (today.empty())
        return false;
    const Seconds left = today.front().get().start - at;
    return left > Seconds(0) && left <= imminence;
}

std::string nextDayLabel(const WidgetEvent& event, Instant relativeTo, const Calendar& calendar,
                         const Formats& formats) {
    const auto tomorrow = calendar.addingDays(1, calendar.startOfDay(relativeTo));
    if (tomorrow && calendar.isSameDay(event.start, *tomorrow))
        return formats.translated("Tomorrow");
    return WidgetFormat::weekdayMonthDay(event.start, calendar, formats);
}

std::string nextEventText(const WidgetEvent& event, Instant relativeTo, const ViewContext& context) {
    const std::string day = nextDayLabel(event, relativeTo, context.calendar, context.formats);
    return filled(context.formats.translated("%s: %s"), {day, event.title});
}

std::optional<std::string> subtitle(const WidgetEvent& event, const Formats& formats) {
    if (event.linkedOpenTaskCount < 1)
        return event.location;
    const std::string tasks =
        filled(formats.translated("%lld open tasks linked"), {std::to_string(event.linkedOpenTaskCount)});
    return event.location ? *event.location + " · " + tasks : tasks;
}

std::string footerText(const EventList& events, const WidgetSnapshot& snapshot, Instant at,
                       const ViewContext& context) {
    const Formats& formats = context.formats;
    if (Staleness(snapshot, at).kind == Staleness::Kind::stale)
        return formats.translated("⚠ open Halvo to refresh");
    if (events.empty())
        return formats.translated("no more meetings today");
    const Instant end = std::ranges::max(events | std::views::transform(effectiveEnd));
    return filled(formats.translated("then free from %s"),
                  {WidgetFormat::time(end, context.calendar, formats)});
}

} // namespace vantel
