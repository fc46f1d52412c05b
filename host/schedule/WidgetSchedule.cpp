#include "host/schedule/WidgetSchedule.h"

#include <exception>
#include <utility>

namespace vantel {

namespace {

/// An end that is further away than the whole patience is from before the clock was set back.
bool isPatient(const std::optional<Instant>& end, Instant now) {
    return end && now < *end && *end - now <= WidgetSchedule::patience;
}

std::expected<WidgetView, std::string> safelyRendered(const StaticConfiguration& configuration,
                                                      const TimelineEntry& entry,
                                                      const ViewContext& context) {
    try {
        return renderedView(configuration, entry, context);
    } catch (const std::exception& error) {
        return std::unexpected(error.what());
    }
}

} // namespace

WidgetSchedule::WidgetSchedule(WidgetBundle bundle, ScheduleSurroundings surroundings, QObject* parent)
    : QObject(parent)
    , m_bundle(std::move(bundle))
    , m_surroundings(std::move(surroundings))
    , m_calendar(m_surroundings.calendar()) {
    connect(&m_runner, &TimelineRunner::answered, this, &WidgetSchedule::takeAnswer);
    connect(&m_surroundings.alarm, &Alarm::reached, this, &WidgetSchedule::advance);
    connect(&m_surroundings.alarm, &Alarm::clockStepped, this, &WidgetSchedule::reloadAll);
}

void WidgetSchedule::setPlaced(const std::set<WidgetKey>& placed) {
    const Instant end = m_surroundings.clock.now() + patience;
    std::erase_if(m_placed, [&](const auto& entry) { return !placed.contains(entry.first); });
    for (const WidgetKey& key : placed)
        if (m_bundle.widget(key.kind) != nullptr && m_placed.try_emplace(key, Placed{{}, {}, end}).second)
            m_kinds[key.kind].schedule.want();
    for (auto& [kind, state] : m_kinds)
        if (placedFamilies(kind).empty())
            state.schedule.clear();
    advance();
}

std::optional<WidgetView> WidgetSchedule::view(const WidgetKey& key) const {
    const auto found = m_placed.find(key);
    return found == m_placed.end() ? std::nullopt : found->second.view;
}

void WidgetSchedule::reload(const std::string& kind) {
    if (!placedFamilies(kind).empty() && m_kinds[kind].schedule.want())
        advance();
}

void WidgetSchedule::reloadAll() {
    wantAll();
    advance();
}

void WidgetSchedule::noteTick(std::optional<Instant> moment) {
    m_tick = moment;
    setAlarm();
}

void WidgetSchedule::applyZoneChange() {
    m_calendar = m_surroundings.calendar();
    for (auto& [kind, state] : m_kinds)
        ++state.answers;
    reloadAll();
}

std::vector<WidgetFamily> WidgetSchedule::placedFamilies(const std::string& kind) const {
    std::vector<WidgetFamily> families;
    for (const auto& [key, placed] : m_placed)
        if (key.kind == kind)
            families.push_back(key.family);
    return families;
}

void WidgetSchedule::wantAll() {
    for (auto& [kind, state] : m_kinds)
        if (!placedFamilies(kind).empty())
            state.schedule.want();
}

void WidgetSchedule::advance() {
    const Instant now = m_surroundings.clock.now();
    beginRequests(now);
    const std::set<WidgetKey> changed = updateViews(now);
    const bool isTick = m_tick && *m_tick <= now;
    if (isTick)
        m_tick.reset();
    planAlarm(now);
    for (const WidgetKey& key : changed)
        Q_EMIT viewChanged(key);
    if (isTick)
        Q_EMIT ticked(now);
}

void WidgetSchedule::beginRequests(Instant now) {
    for (auto& [kind, state] : m_kinds)
        if (state.schedule.begin(now))
            m_runner.ask(*m_bundle.widget(kind), {placedFamilies(kind), now, m_calendar});
}

void WidgetSchedule::takeAnswer(const TimelineAnswer& answer) {
    Kind& kind = m_kinds[answer.kind];
    if (!answer.timelines) {
        m_log.warn(answer.kind + " has no timeline: " + answer.timelines.error());
        kind.schedule.fail();
        endPatience(answer.kind, m_surroundings.clock.now());
    } else {
        ++kind.answers;
        kind.schedule.answer(placedFamilies(answer.kind).empty() ? KindTimelines{} : *answer.timelines);
    }
    advance();
    if (!kind.schedule.isRunning() && !kind.schedule.isWanted())
        Q_EMIT settled(answer.kind);
}

std::set<WidgetKey> WidgetSchedule::updateViews(Instant now) {
    std::set<WidgetKey> changed;
    for (auto& [key, placed] : m_placed)
        if (updateView(key, placed, now))
            changed.insert(key);
    return changed;
}

bool WidgetSchedule::updateView(const WidgetKey& key, Placed& placed, Instant now) {
    const Kind& kind = m_kinds.at(key.kind);
    const TimelineEntry* entry = kind.schedule.shown(key.family, now);
    if (entry == nullptr)
        return showNoData(key, placed, now);
    const std::pair source(kind.answers, entry->date);
    if (std::exchange(placed.source, source) == source)
        return false;
    if (showEntry(key, placed, *entry))
        return true;
    if (placed.patienceEnd)
        placed.patienceEnd = now;
    return showNoData(key, placed, now);
}

bool WidgetSchedule::showEntry(const WidgetKey& key, Placed& placed, const TimelineEntry& entry) {
    const StaticConfiguration& configuration = *m_bundle.widget(key.kind);
    auto view = safelyRendered(configuration, entry, {key.family, m_calendar, m_surroundings.formats});
    if (!view) {
        m_log.warn(key.kind + " cannot be drawn: " + view.error());
        return false;
    }
    placed.patienceEnd.reset();
    const bool isChanged = !placed.view || placed.view->content != view->content;
    placed.view = std::move(*view);
    return isChanged;
}

bool WidgetSchedule::showNoData(const WidgetKey& key, Placed& placed, Instant now) {
    if (!placed.patienceEnd || isPatient(placed.patienceEnd, now))
        return false;
    placed.patienceEnd.reset();
    return m_surroundings.entryWithoutData &&
           showEntry(key, placed, m_surroundings.entryWithoutData(key.kind, now));
}

/// The first answer to a waiting widget was of no use.
void WidgetSchedule::endPatience(const std::string& kind, Instant now) {
    for (auto& [key, placed] : m_placed)
        if (key.kind == kind && placed.patienceEnd)
            placed.patienceEnd = now;
}

void WidgetSchedule::planAlarm(Instant now) {
    m_nextMoment.reset();
    for (const auto& [key, placed] : m_placed)
        if (placed.patienceEnd > now)
            m_nextMoment = earlier(m_nextMoment, placed.patienceEnd);
    for (const auto& [kind, state] : m_kinds)
        m_nextMoment = earlier(m_nextMoment, state.schedule.nextMoment(now));
    setAlarm();
}

void WidgetSchedule::setAlarm() {
    m_surroundings.alarm.wakeAt(earlier(m_nextMoment, m_tick));
}

} // namespace vantel
