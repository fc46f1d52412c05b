#pragma once

#include "host/app/CardShelf.h"
#include "host/schedule/WidgetSchedule.h"
#include "platform/LocalizedFormats.h"
#include "tests/host/schedule/ScheduleFakes.h"

#include <QImage>
#include <memory>
#include <vector>

namespace vantel::torture {

/// All widgets in all their sizes, with the providers, the schedule and the cards of the program, on a clock
/// that is turned by hand. Windows exist in memory only.
class SimulatedDesktop final {
public:
    explicit SimulatedDesktop(double secondsSinceReference);

    /// Goes on to the next moment at which anything is to change. Returns, as all others do, when every card
    /// is right and drawn.
    void liveOn();

    /// Somebody sets the clock.
    void jumpTo(double secondsSinceReference);

    /// Somebody travels: `TZ` names another zone.
    void changeZone();

    /// What all cards have to show now, in an order that is always the same.
    std::vector<WidgetContent> contents() const;

    /// What they do show.
    std::vector<QImage> pictures() const;

    double seconds() const { return m_clock.seconds; }
    long reloads() const { return m_reloads; }

private:
    void placeAll(const WidgetBundle& bundle);
    void showView(const WidgetKey& key);
    void showTimes();
    void letPass(Seconds time);
    void reload();
    void awaitAnswers();

    testing::HandClock m_clock;
    testing::HandAlarm m_alarm;
    LocalizedFormats m_formats{"en_GB.UTF-8"};
    WidgetSchedule m_schedule;
    CardShelf m_shelf;
    std::vector<WidgetKey> m_keys;
    std::vector<std::unique_ptr<CardWidget>> m_cards;
    std::size_t m_kinds = 0;
    std::size_t m_awaited = 0;
    long m_reloads = 0;
};

} // namespace vantel::torture
