#pragma once

#include "host/app/CardShelf.h"
#include "host/app/HostedWidgets.h"
#include "host/bus/DayWatch.h"
#include "host/bus/DesktopSettings.h"
#include "host/bus/LinkOpener.h"
#include "host/bus/WidgetsService.h"
#include "host/desk/Desk.h"
#include "host/desk/GalleryWindow.h"
#include "host/schedule/IntentRunner.h"
#include "host/schedule/WakeTimer.h"
#include "host/schedule/WidgetSchedule.h"

#include <QPointer>

namespace vantel {

/// The running program: the schedule decides what each widget shows, the desk where it stands, the bus who
/// may ask for what; this joins them and decides nothing itself. Made after the toolkit's application object.
class HostApplication final : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(HostApplication)

public:
    HostApplication(HostedWidgets widgets, const Formats& formats, BusKnock sessionBus);
    ~HostApplication() override;

    /// Shows the widgets, or asks the program that already runs to come forward. Returns the exit status once
    /// the program is to end. A provider or a press that waits for a lock may then still run: leave with
    /// std::_Exit, before anything is taken down.
    int run();

    /// The same, and opens the gallery.
    int runWithGallery();

private:
    int runWith(const QString& action);
    void perform(const QString& action, const QString& activationToken);
    void finishWriting();
    void joinCards();
    void joinSchedule();
    void joinDesk();
    void joinDays();
    void joinSessionBus();
    void joinSystemBus();
    QWidget* makeCard(const WidgetKey& key);
    void openLink(CardWidget* card, const Url& url);
    void showView(const WidgetKey& key);
    void tick();
    void finish(const IntentOutcome& outcome);
    void place(const PlacedWidgets& placed);
    void takePreferences(const DesktopPreferences& preferences);
    void noteNextTick(Instant now);
    void comeForward(const QString& activationToken);
    void showGallery(const QString& activationToken = {});
    QWidget* makePreview(const StaticConfiguration& widget, WidgetFamily family);
    void showAbout();

    HostedWidgets m_widgets;
    const Formats& m_formats;
    std::shared_ptr<const Clock> m_clock = std::make_shared<SystemClock>();
    std::shared_ptr<UuidSource> m_identifiers = std::make_shared<SystemUuidSource>();
    MessageBus m_sessionBus;
    WidgetsService m_service{m_sessionBus};
    DesktopSettings m_settings;
    LinkOpener m_links;
    std::unique_ptr<MessageBus> m_systemBus; ///< later than the first frame
    DayWatch m_days;                         ///< watches before the schedule first asks for the zone
    WakeTimer m_alarm;
    WidgetSchedule m_schedule;
    IntentRunner m_intents;
    CardShelf m_cards;
    CardShelf m_previews; ///< in the gallery
    std::unique_ptr<WindowSystem> m_windows = makeWindowSystem();
    SystemScreens m_screens{*m_windows};
    PlacementSaver m_placements;
    Desk m_desk;
    QPointer<GalleryWindow> m_gallery;
    std::map<std::string, std::vector<IntentCall>> m_performed; ///< of each kind, not yet seen on its cards
};

} // namespace vantel
