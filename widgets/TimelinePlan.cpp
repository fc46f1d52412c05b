#include "widgets/TimelinePlan.h"

#include "core/WidgetBuckets.h"

#include <algorithm>

namespace vantel {

namespace {

using Reason = PlannedMoment::Reason;

constexpr Seconds leadTime(300);
constexpr int friday = 6;
constexpr int recapHour = 15;

class Plan {
public:
    Plan(Instant now, Instant midnight)
        : m_now(now)
        , m_midnight(midnight) {
        m_moments.push_back({now, Reason::now});
    }

    void add(const WidgetEvent& event) {
        addIfAheadToday({event.start - leadTime, Reason::eventIsNear, &event});
        addIfAheadToday({event.start, Reason::eventStarts, &event});
        if (event.end)
            addIfAheadToday({*event.end, Reason::eventEnds, &event});
    }

    void addIfAhead(const PlannedMoment& moment) {
        if (moment.date > m_now)
            m_moments.push_back(moment);
    }

    std::vector<PlannedMoment> sorted() && {
        std::ranges::stable_sort(m_moments, {}, &PlannedMoment::date);
        return std::move(m_moments);
    }

private:
    void addIfAheadToday(const PlannedMoment& moment) {
        if (moment.date < m_midnight)
            addIfAhead(moment);
    }

    Instant m_now;
    Instant m_midnight;
    std::vector<PlannedMoment> m_moments;
};

std::optional<Instant> recapOf(Instant now, const Calendar& calendar) {
    const CivilTime today = calendar.civilTime(now);
    if (today.weekday != friday)
        return std::nullopt;
    return calendar.date(today.year, today.month, today.day, recapHour);
}

} // namespace

std::vector<PlannedMoment> plannedMoments(const WidgetSnapshot* snapshot, Instant now,
                                          const Calendar& calendar) {
    Plan plan(now, WidgetBuckets::nextMidnight(now, calendar));
    if (snapshot != nullptr)
        for (const WidgetEvent& event : snapshot->events)
            plan.add(event);
    if (const auto recap = recapOf(now, calendar))
        plan.addIfAhead({*recap, Reason::recapBegins});
    return std::move(plan).sorted();
}

} // namespace vantel
