#pragma once

#include "host/WidgetKey.h"
#include "host/schedule/Alarm.h"
#include "host/schedule/KindSchedule.h"
#include "host/schedule/TimelineRunner.h"
#include "host/schedule/WarningLog.h"
#include "hosting/WidgetBundle.h"

#include <QObject>
#include <functional>
#include <map>
#include <optional>
#include <set>

namespace vantel {

/// The world as a schedule needs it. What it refers to lives longer than the schedule.
struct ScheduleSurroundings {
    const Clock& clock;
    Alarm& alarm; ///< for this schedule alone
    const Formats& formats;
    std::function<SystemCalendar()> calendar =
        SystemCalendar::current; ///< asked at first and on zone changes

    /// What a kind shows where it has nothing to show: the state of a widget without data. Whoever chooses
    /// the bundle knows it. Without one, such a widget has no view.
    std::function<TimelineEntry(const std::string& kind, Instant now)> entryWithoutData = {};
};

/// What every placed widget shows, at every moment. Asks providers on worker threads and wakes up, through
/// its one alarm, only when something is to change. All functions belong to the window thread; none blocks.
///
/// Signals are emitted when everything they tell of is in place, so that a slot may call back into this.
class WidgetSchedule final : public QObject {
    Q_OBJECT

public:
    /// How long a widget without any view waits for its first timelines before it shows its state without
    /// data: long enough that a start shows no flash of it.
    static constexpr Seconds patience{0.5};

    WidgetSchedule(WidgetBundle bundle, ScheduleSurroundings surroundings, QObject* parent = nullptr);

    /// Which widgets there are. New ones are asked for at once; those that are gone cost nothing more. Kinds
    /// that the bundle does not declare are left out.
    void setPlaced(const std::set<WidgetKey>& placed);

    /// The last good view; absent before the first one, and for a widget that is not placed.
    std::optional<WidgetView> view(const WidgetKey& key) const;

    /// Asks for new timelines; a kind that is not placed is passed over. Any number of calls ends in one
    /// request that runs and one behind it.
    void reload(const std::string& kind);
    void reloadAll();

    /// The earliest moment at which a time left on screen reads differently; absent for none. Takes the place
    /// of the one before, and counts once. It has to lie after now.
    void noteTick(std::optional<Instant> moment);

    /// The time zone may be another: the calendar is made anew, and so are views and timelines.
    void applyZoneChange();

Q_SIGNALS:
    /// A view has come or its content is another. Its date alone may change without.
    void viewChanged(const vantel::WidgetKey& key);

    /// All that was asked of a kind is answered and shown, or failed: nothing more is pending.
    void settled(const std::string& kind);

    /// The moment of `noteTick` has come.
    void ticked(vantel::Instant now);

private:
    struct Placed {
        std::optional<WidgetView> view;
        std::optional<std::pair<std::uint64_t, Instant>>
            source;                         ///< what the last attempt at a view was made of
        std::optional<Instant> patienceEnd; ///< while it waits for its first view
    };
    struct Kind {
        KindSchedule schedule;
        std::uint64_t answers = 0; ///< how many times its entries or their surroundings have changed
    };

    std::vector<WidgetFamily> placedFamilies(const std::string& kind) const;
    void wantAll();
    void advance();
    void beginRequests(Instant now);
    void takeAnswer(const TimelineAnswer& answer);
    std::set<WidgetKey> updateViews(Instant now);
    bool updateView(const WidgetKey& key, Placed& placed, Instant now);
    bool showEntry(const WidgetKey& key, Placed& placed, const TimelineEntry& entry);
    bool showNoData(const WidgetKey& key, Placed& placed, Instant now);
    void endPatience(const std::string& kind, Instant now);
    void planAlarm(Instant now);
    void setAlarm();

    WidgetBundle m_bundle;
    ScheduleSurroundings m_surroundings;
    SystemCalendar m_calendar;
    TimelineRunner m_runner;
    WarningLog m_log;
    std::map<std::string, Kind>
        m_kinds; ///< kept when the last widget of a kind goes: a request may still run
    std::map<WidgetKey, Placed> m_placed;
    std::optional<Instant> m_tick;
    std::optional<Instant> m_nextMoment;
};

} // namespace vantel
