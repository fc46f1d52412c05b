#pragma once

#include "hosting/StaticConfiguration.h"

#include <map>
#include <optional>

namespace vantel {

/// What a provider answered for one kind: a timeline for each family that was asked for.
using KindTimelines = std::map<WidgetFamily, Timeline<TimelineEntry>>;

/// When one kind of widget asks for timelines, and what it shows meanwhile. A value that knows no clock, no
/// thread and no timer: every question carries its own `now`.
///
/// At most one request runs and one waits behind it; two requests start at least `reloadInterval` apart. What
/// is shown stays until an answer arrives.
class KindSchedule {
public:
    static constexpr Seconds reloadInterval{0.1};
    static constexpr Seconds failureInterval{900}; ///< after a request that brought no timelines
    static constexpr Seconds shortestPlan{60};     ///< where a timeline asks for a reload in its own past

    /// Asks for a reload. False when one is waiting already, so that nothing has changed.
    bool want();

    /// Whether a request starts at this moment: one is wanted or the reload date has come, none is running,
    /// and the last one is long enough ago. If so it counts as running, until `answer` or `fail`.
    bool begin(Instant now);

    /// The running request brought timelines; from now on they are shown.
    void answer(KindTimelines timelines);

    /// The running request brought none: what is shown stays, and another is made before long.
    void fail();

    /// Forgets what is shown, as for a widget that is taken away. A running request goes on.
    void clear();

    /// The last entry whose date is not after `now`; the first one where all are still to come, as when the
    /// clock is set back. Null without a timeline of that family. Valid until the next change.
    const TimelineEntry* shown(WidgetFamily family, Instant now) const;

    /// The earliest moment after which an answer changes: the next entry of any family, the reload date, or
    /// the end of the pause before a wanted request. Absent when nothing is to come by itself.
    std::optional<Instant> nextMoment(Instant now) const;

    bool isRunning() const { return m_isRunning; }
    bool isWanted() const { return m_isWanted; }

private:
    bool isPausing(Instant now) const;
    bool isReloadDue(Instant now) const { return m_reloadDate && *m_reloadDate <= now; }

    KindTimelines m_timelines;
    std::optional<Instant> m_reloadDate;
    std::optional<Instant> m_lastStart;
    bool m_isWanted = false;
    bool m_isRunning = false;
};

/// The earlier of two moments, where either may be absent.
std::optional<Instant> earlier(std::optional<Instant> a, std::optional<Instant> b);

} // namespace vantel
