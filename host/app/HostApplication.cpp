#include "host/app/HostApplication.h"

#include "host/app/Palette.h"
#include "host/app/SignalWatch.h"

#include <QApplication>
#include <QDBusMessage>
#include <QDeadlineTimer>
#include <QMessageBox>
#include <QScreen>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <set>
#include <utility>

namespace vantel {

namespace {

using namespace std::chrono_literals;

/// A press that waits for another program's lock, or a slow disk, may not keep the session from ending.
constexpr auto patienceAtEnd = 700ms;

/// A portal that runs answers within some milliseconds, and cards that change their colours after they were
/// seen are uglier than cards that come a little later.
constexpr auto patienceWithPortal = 150ms;

/// What no card shows may wait until all cards are there, which takes a tenth of it.
constexpr auto untilAllIsSeen = 1s;

void warn(const std::string& sentence) {
    qWarning("%s", sentence.c_str());
}

const QString galleryAction = QStringLiteral("gallery");
constexpr const char* activationVariable = "XDG_ACTIVATION_TOKEN";

/// What the toolkit enlarges everything by on account of the X server's resolution, into which desktops put
/// the scale of the texts. What this program is asked for beside it, and scales of other systems, are none of
/// it.
double resolutionScale() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (screen == nullptr || QGuiApplication::platformName() != u"xcb")
        return 1;
    const double asked = qEnvironmentVariable("QT_SCALE_FACTOR").toDouble();
    return screen->devicePixelRatio() / (asked > 0 ? asked : 1);
}

Look lookOf(const DesktopPreferences& preferences) {
    return {.appearance = preferences.appearance(),
            .scale = cardScale(preferences.textScale, resolutionScale()),
            .motion = preferences.motion};
}

WidgetKey keyOf(const Placement& placement) {
    return {placement.kind, placement.family};
}

/// Absent where the widget fails; the gallery then shows no card, and goes on.
std::optional<WidgetView> previewOf(const StaticConfiguration& widget, WidgetFamily family, Instant now,
                                    const Formats& formats) {
    const FixedClock clock(now);
    const SystemCalendar calendar = SystemCalendar::current();
    try {
        const TimelineEntry entry = widget.getSnapshot({clock, calendar, family, true});
        auto view = renderedView(widget, entry, {family, calendar, formats});
        return view ? std::optional(std::move(*view)) : std::nullopt;
    } catch (const std::exception& error) {
        warn(widget.kind + " has no preview: " + error.what());
        return std::nullopt;
    }
}

QString activationToken() {
    return qEnvironmentVariable(activationVariable);
}

/// Brings a window to the front. The toolkit takes the desktop's permission from the environment.
void bringForward(QWidget& window, const QString& activationToken) {
    if (!activationToken.isEmpty())
        qputenv(activationVariable, activationToken.toUtf8());
    window.show();
    window.raise();
    window.activateWindow();
    qunsetenv(activationVariable);
}

} // namespace

HostApplication::HostApplication(HostedWidgets widgets, const Formats& formats, BusKnock sessionBus)
    : m_widgets(std::move(widgets))
    , m_formats(formats)
    , m_sessionBus(std::move(sessionBus))
    , m_settings(m_sessionBus, isDesktopPaletteDark)
    , m_links(m_sessionBus, formats, m_widgets.linkScheme)
    , m_schedule(m_widgets.bundle,
                 {*m_clock, m_alarm, formats, SystemCalendar::current, m_widgets.entryWithoutData})
    , m_intents(m_widgets.bundle, {m_clock, m_identifiers}, formats)
    , m_cards(formats, m_widgets.emptyBackground)
    , m_previews(formats, m_widgets.emptyBackground)
    , m_placements(stateFolder(), systemFileSystem(), warn)
    , m_desk({m_widgets.bundle, formats, *m_windows, m_screens, m_placements, *m_identifiers,
              [this](const Placement& placement) { return makeCard(keyOf(placement)); }}) {
    joinCards();
    joinSchedule();
    joinDesk();
    joinDays();
    joinSessionBus();
}

HostApplication::~HostApplication() = default;

int HostApplication::run() {
    return runWith({});
}

int HostApplication::runWithGallery() {
    return runWith(galleryAction);
}

int HostApplication::runWith(const QString& action) {
    if (m_service.start(activationToken(), action) == WidgetsService::Start::alreadyRunning)
        return EXIT_SUCCESS;
    QApplication::setQuitOnLastWindowClosed(false);
    m_settings.awaitAnswers(patienceWithPortal);
    // While that is waited for there is nothing to finish, and a loop that would forget the request.
    SignalWatch signalWatch;
    connect(&signalWatch, &SignalWatch::endRequested, qApp, &QApplication::quit);
    connect(qApp, &QApplication::aboutToQuit, this, &HostApplication::finishWriting);
    takePreferences(m_settings.preferences());
    perform(action, activationToken());
    m_desk.start();
    connect(&m_service, &WidgetsService::activated, this, &HostApplication::comeForward);
    QTimer::singleShot(untilAllIsSeen, this, &HostApplication::joinSystemBus);
    return QApplication::exec();
}

void HostApplication::perform(const QString& action, const QString& activationToken) {
    if (action == galleryAction)
        showGallery(activationToken);
    else if (action == u"reload")
        m_schedule.reloadAll();
}

/// Presses go on while the places are waited for, and may wait for others: so they come last.
void HostApplication::finishWriting() {
    const QDeadlineTimer end(patienceAtEnd);
    m_placements.drain(std::chrono::milliseconds(end.remainingTime()));
    m_intents.drain(std::chrono::milliseconds(end.remainingTime()));
}

void HostApplication::joinCards() {
    connect(&m_cards, &CardShelf::linkActivated, this, &HostApplication::openLink);
    connect(&m_cards, &CardShelf::intentPressed, this,
            [this](const std::string& kind, const IntentCall& intent) {
                m_cards.setPending(kind, intent);
                m_intents.run(kind, intent);
            });
    connect(&m_intents, &IntentRunner::ended, this, &HostApplication::finish);
}

void HostApplication::joinSchedule() {
    connect(&m_schedule, &WidgetSchedule::viewChanged, this, &HostApplication::showView);
    connect(&m_schedule, &WidgetSchedule::ticked, this, &HostApplication::tick);
    connect(&m_alarm, &Alarm::clockStepped, this, &HostApplication::tick);
    connect(&m_alarm, &Alarm::reached, &m_sessionBus, &MessageBus::lookAgain);
    connect(&m_schedule, &WidgetSchedule::settled, this, [this](const std::string& kind) {
        for (const IntentCall& call : std::exchange(m_performed[kind], {}))
            m_cards.endPending(kind, call);
    });
}

void HostApplication::joinDays() {
    connect(&m_days, &DayWatch::zoneChanged, &m_schedule, &WidgetSchedule::applyZoneChange);
    connect(&m_days, &DayWatch::resumed, this, [this] {
        m_schedule.reloadAll();
        tick();
    });
}

/// Nobody waits for it: it is taken when it has answered.
void HostApplication::joinSystemBus() {
    m_systemBus = std::make_unique<MessageBus>(BusKnock(systemBusAddress(), 0ms));
    connect(&m_alarm, &Alarm::reached, m_systemBus.get(), &MessageBus::lookAgain);
    m_days.listenTo(*m_systemBus);
}

void HostApplication::joinDesk() {
    connect(&m_desk, &Desk::placedChanged, this, &HostApplication::place);
    connect(&m_desk, &Desk::cardFocused, this, [](QWidget* card) {
        if (auto* shown = qobject_cast<CardWidget*>(card))
            shown->focusFirst();
    });
    connect(&m_desk, &Desk::addWidgetsAsked, this, [this] { showGallery(); });
    connect(&m_desk, &Desk::reloadAsked, &m_schedule, &WidgetSchedule::reload);
    connect(&m_desk, &Desk::aboutAsked, this, &HostApplication::showAbout);
    connect(&m_desk, &Desk::quitAsked, qApp, &QApplication::quit);
    connect(&m_settings, &DesktopSettings::changed, this, &HostApplication::takePreferences);
}

void HostApplication::joinSessionBus() {
    connect(&m_service, &WidgetsService::focusRequested, &m_desk, &Desk::focusWidgets);
    connect(&m_service, &WidgetsService::galleryRequested, this, [this] { showGallery(); });
    connect(&m_service, &WidgetsService::actionRequested, this, &HostApplication::perform);
    connect(&m_service, &WidgetsService::reloadRequested, &m_schedule, &WidgetSchedule::reload);
    connect(&m_service, &WidgetsService::reloadAllRequested, &m_schedule, &WidgetSchedule::reloadAll);
}

/// What goes wrong is said where it was clicked, and nowhere else.
void HostApplication::openLink(CardWidget* card, const Url& url) {
    m_links.open(url, [clicked = QPointer(card)](const QString& sentence) {
        if (!clicked.isNull())
            clicked->showNotice(sentence);
    });
}

/// A second widget of one kind and size shows at once what the first one shows.
QWidget* HostApplication::makeCard(const WidgetKey& key) {
    CardWidget* card = m_cards.makeCard(key);
    card->setNow(m_clock->now());
    if (const auto view = m_schedule.view(key))
        card->setView(*view);
    return card;
}

void HostApplication::showView(const WidgetKey& key) {
    const Instant now = m_clock->now();
    // What the user has just done may be followed with the eye; what the clock does has to be there.
    const Arrival arrival = m_performed[key.kind].empty() ? Arrival::atOnce : Arrival::faded;
    if (const auto view = m_schedule.view(key))
        m_cards.show(key, *view, now, arrival);
    noteNextTick(now);
}

void HostApplication::noteNextTick(Instant now) {
    m_schedule.noteTick(earlier(m_cards.nextTick(now), m_previews.nextTick(now)));
}

void HostApplication::tick() {
    const Instant now = m_clock->now();
    m_cards.setNow(now);
    m_previews.setNow(now);
    noteNextTick(now);
}

/// A widget shows what its own action has done as soon as it is asked again.
void HostApplication::finish(const IntentOutcome& outcome) {
    if (outcome.hasSucceeded()) {
        m_performed[outcome.kind].push_back(outcome.call);
        m_schedule.reload(outcome.kind);
        return;
    }
    m_cards.endPending(outcome.kind, outcome.call);
    m_cards.showNotice(outcome.kind, QString::fromStdString(outcome.failure));
}

void HostApplication::place(const PlacedWidgets& placed) {
    const std::set<WidgetKey> different(placed.begin(), placed.end());
    m_schedule.setPlaced(different);
    m_service.setConfigurations(placed);
    for (const WidgetKey& key : different)
        showView(key);
}

void HostApplication::takePreferences(const DesktopPreferences& preferences) {
    const Look look = lookOf(preferences);
    usePalette(preferences.isDark ? Shade::dark : Shade::light);
    m_cards.setLook(look);
    m_previews.setLook(look);
    m_desk.setScale(look.scale);
    if (!m_gallery.isNull())
        m_gallery->setScale(look.scale);
}

/// Where there is no widget to come forward, one can be added.
void HostApplication::comeForward(const QString& activationToken) {
    if (m_desk.placed().empty())
        showGallery(activationToken);
    else
        m_desk.focusWidgets();
}

void HostApplication::showGallery(const QString& activationToken) {
    if (m_gallery.isNull()) {
        m_gallery = new GalleryWindow(
            m_widgets.bundle, m_formats,
            [this](const StaticConfiguration& widget, WidgetFamily family) {
                return makePreview(widget, family);
            },
            m_cards.look().scale);
        m_gallery->setAttribute(Qt::WA_DeleteOnClose);
        connect(m_gallery, &GalleryWindow::chosen, &m_desk, &Desk::add);
    }
    bringForward(*m_gallery, activationToken);
}

QWidget* HostApplication::makePreview(const StaticConfiguration& widget, WidgetFamily family) {
    const Instant now = m_clock->now();
    CardWidget* card = m_previews.makeCard({widget.kind, family});
    card->setNow(now);
    if (const auto view = previewOf(widget, family, now, m_formats))
        card->setView(*view);
    noteNextTick(now);
    return card;
}

void HostApplication::showAbout() {
    auto* box = new QMessageBox(QMessageBox::NoIcon, QStringLiteral("Vantel Widgets"),
                                QStringLiteral("Vantel Widgets " VANTEL_VERSION), QMessageBox::Close);
    box->setTextFormat(Qt::PlainText);
    // The title of the window would be cut above so few words.
    box->setStyleSheet(QStringLiteral("QLabel#qt_msgbox_informativelabel { min-width: 280px; }"));
    box->setInformativeText(QString::fromStdString(
        m_formats.translated("Your tasks, meetings, group and mail at a glance, on your desktop.")));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setModal(false);
    box->show();
}

} // namespace vantel
