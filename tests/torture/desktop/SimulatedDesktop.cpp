#include "tests/torture/desktop/SimulatedDesktop.h"

#include "widgets/VantelWidgetsBundle.h"
#include "widgets/WTokens.h"

#include <QApplication>
#include <QEventLoop>

namespace vantel::torture {

SimulatedDesktop::SimulatedDesktop(double secondsSinceReference)
    : m_schedule(VantelWidgetsBundle::body(), {.clock = m_clock, .alarm = m_alarm, .formats = m_formats})
    , m_shelf(m_formats, WTokens::windowBg) {
    m_clock.seconds = secondsSinceReference;
    QObject::connect(&m_schedule, &WidgetSchedule::viewChanged, &m_shelf,
                     [this](const WidgetKey& key) { showView(key); });
    QObject::connect(&m_schedule, &WidgetSchedule::ticked, &m_shelf, [this] { showTimes(); });
    QObject::connect(&m_alarm, &Alarm::clockStepped, &m_shelf, [this] { showTimes(); });
    QObject::connect(&m_schedule, &WidgetSchedule::settled, &m_shelf, [this] {
        ++m_reloads;
        --m_awaited;
    });
    placeAll(VantelWidgetsBundle::body());
}

void SimulatedDesktop::liveOn() {
    if (m_alarm.moment)
        m_alarm.goOff(m_clock);
    else
        m_clock.seconds += 3600;
    reload();
    awaitAnswers();
}

void SimulatedDesktop::jumpTo(double secondsSinceReference) {
    m_alarm.step(m_clock, secondsSinceReference);
    m_awaited = m_kinds;
    awaitAnswers();
}

void SimulatedDesktop::changeZone() {
    letPass(KindSchedule::reloadInterval);
    m_schedule.applyZoneChange();
    m_awaited = m_kinds;
    awaitAnswers();
}

std::vector<WidgetContent> SimulatedDesktop::contents() const {
    std::vector<WidgetContent> contents;
    for (const WidgetKey& key : m_keys)
        contents.push_back(m_schedule.view(key).value().content);
    return contents;
}

std::vector<QImage> SimulatedDesktop::pictures() const {
    std::vector<QImage> pictures;
    for (const auto& card : m_cards)
        pictures.push_back(card->grab().toImage());
    return pictures;
}

void SimulatedDesktop::placeAll(const WidgetBundle& bundle) {
    m_kinds = bundle.widgets.size();
    for (const StaticConfiguration& widget : bundle.widgets)
        for (const WidgetFamily family : widget.supportedFamilies) {
            m_keys.push_back({widget.kind, family});
            m_cards.emplace_back(m_shelf.makeCard(m_keys.back()))->show();
        }
    m_schedule.setPlaced({m_keys.begin(), m_keys.end()});
    m_awaited = m_kinds;
    awaitAnswers();
}

void SimulatedDesktop::showView(const WidgetKey& key) {
    m_shelf.show(key, m_schedule.view(key).value(), m_clock.now(), Arrival::atOnce);
    m_schedule.noteTick(m_shelf.nextTick(m_clock.now()));
}

void SimulatedDesktop::showTimes() {
    m_shelf.setNow(m_clock.now());
    m_schedule.noteTick(m_shelf.nextTick(m_clock.now()));
}

void SimulatedDesktop::letPass(Seconds time) {
    m_clock.seconds += time.count();
    if (m_alarm.moment && *m_alarm.moment <= m_clock.now())
        m_alarm.goOffLate();
}

/// Requests that come too soon after others would wait, so that time passes between them.
void SimulatedDesktop::reload() {
    letPass(KindSchedule::reloadInterval);
    m_schedule.reloadAll();
    m_awaited = m_kinds;
}

/// Outside the loop of a program, what is to be deleted later waits until it is asked for.
void SimulatedDesktop::awaitAnswers() {
    while (m_awaited > 0)
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    QApplication::processEvents();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace vantel::torture
