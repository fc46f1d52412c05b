#pragma once

#include "hosting/WidgetFamily.h"
#include "platform/Calendar.h"
#include "platform/Clock.h"

#include <vector>

namespace vantel {

/// What a host tells a provider with each request.
struct TimelineProviderContext {
    const Clock& clock;
    const Calendar& calendar; ///< the user's current one
    WidgetFamily family = WidgetFamily::systemSmall;
    bool isPreview = false; ///< the request is for a gallery, which shows sample data
};

/// When a host asks for the next timeline.
struct TimelineReloadPolicy {
    Instant after;

    bool operator==(const TimelineReloadPolicy&) const = default;
};

/// What to show from which moment on, in ascending order, never empty. An `Entry` has a field `date`.
template <typename Entry>
struct Timeline {
    std::vector<Entry> entries;
    TimelineReloadPolicy policy;

    bool operator==(const Timeline&) const = default;
};

/// Where a widget's entries come from. Calls may come from any thread and complete before they return; they
/// may block on files.
template <typename Entry>
class TimelineProvider {
public:
    virtual ~TimelineProvider() = default;

    /// Sample data, at once, without reading anything.
    virtual Entry placeholder(const TimelineProviderContext& context) const = 0;

    /// One entry for a gallery or a quick look.
    virtual Entry getSnapshot(const TimelineProviderContext& context) const = 0;
    virtual Timeline<Entry> getTimeline(const TimelineProviderContext& context) const = 0;
};

} // namespace vantel
