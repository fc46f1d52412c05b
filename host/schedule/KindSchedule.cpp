#include "host/schedule/KindSchedule.h"

#include <algorithm>
#include <utility>

namespace vantel {

namespace {

using Entries = std::vector<TimelineEntry>;

Entries::const_iterator firstAfter(const Entries& entries, Instant now) {
    return std::ranges::find_if(entries, [now](const TimelineEntry& entry) { return entry.date > now; });
}

std::optional<Instant> nextDate(const Entries& entries, Instant now) {
    const auto next = firstAfter(entries, now);
    return next == entries.end() ? std::nullopt : std::optional(next->date);
}

/// The date at which a timeline asks to be replaced. One that was over before the request began would have
/// the host ask again and again.
Instant reloadDate(const TimelineReloadPolicy& policy, Instant start) {
    return policy.after > start ? policy.after : start + KindSchedule::shortestPlan;
}

} // namespace

std::optional<Instant> earlier(std::optional<Instant> a, std::optional<Instant> b) {
    if (!a || !b)
        return a ? a : b;
    return std::min(*a, *b);
}

bool KindSchedule::want() {
    return !std::exchange(m_isWanted, true);
}

bool KindSchedule::begin(Instant now) {
    const bool isAsked = m_isWanted || isReloadDue(now);
    if (!isAsked || m_isRunning || isPausing(now))
        return false;
    m_isWanted = false;
    m_isRunning = true;
    m_lastStart = now;
    m_reloadDate.reset();
    return true;
}

void KindSchedule::answer(KindTimelines timelines) {
    m_isRunning = false;
    m_timelines = std::move(timelines);
    m_reloadDate.reset();
    for (const auto& [family, timeline] : m_timelines)
        m_reloadDate = earlier(m_reloadDate, reloadDate(timeline.policy, m_lastStart.value_or(Instant{})));
}

void KindSchedule::fail() {
    m_isRunning = false;
    m_reloadDate = m_lastStart.value_or(Instant{}) + failureInterval;
}

void KindSchedule::clear() {
    m_timelines.clear();
    m_reloadDate.reset();
    m_isWanted = false;
}

const TimelineEntry* KindSchedule::shown(WidgetFamily family, Instant now) const {
    const auto found = m_timelines.find(family);
    if (found == m_timelines.end() || found->second.entries.empty())
        return nullptr;
    const Entries& entries = found->second.entries;
    const auto next = firstAfter(entries, now);
    return next == entries.begin() ? &*next : &*std::prev(next);
}

std::optional<Instant> KindSchedule::nextMoment(Instant now) const {
    std::optional<Instant> next;
    for (const auto& [family, timeline] : m_timelines)
        next = earlier(next, nextDate(timeline.entries, now));
    if (m_isRunning)
        return next;
    if (!m_isWanted && !isReloadDue(now))
        return earlier(next, m_reloadDate);
    return earlier(next, isPausing(now) ? *m_lastStart + reloadInterval : now);
}

/// A start that lies in the future is from before the clock was set back, and delays nothing.
bool KindSchedule::isPausing(Instant now) const {
    return m_lastStart && *m_lastStart <= now && now < *m_lastStart + reloadInterval;
}

} // namespace vantel
