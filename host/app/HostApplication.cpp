#include "host/app/HostApplication.h"

#include "host/app/Palette.h"
#include "host/app/SignalWatch.h"

#include <QApplication>
#include <QDBusMessage>
#include <QMessageBox>
#include <QScreen>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <utility>

namespace vantel {

namespace {

using namespace std::chrono_literals;

/// A press that waits for another program's lock may not keep the session from ending.
constexpr auto patienceAtEnd = 800ms;

void warn(const std::string& sentence) {
    qWarning("%s", sentence.c_str());
}

/// Where the resolution of the X server already says that the user wants larger texts, it is not applied
/// twice. Elsewhere the ratio of a screen says nothing of texts.
double cardScale(double textScale) {
    const QScreen* screen = QGuiApplication::primaryScreen();
    const bool isSaid = screen != nullptr && QGuiApplication::platformName() == u"xcb";
    const double inResolution = isSaid ? screen->devicePixelRatio() : 1;
    return std::max(1.0, textScale / inResolution);
}

Look lookOf(const DesktopPreferences& preferences) {
    return {.appearance = preferences.appearance(),
            .scale = cardScale(preferences.textScale),
            .motion = preferences.motion};
}

WidgetKey keyOf(const Placement& placement) {
    return {placement.kind, placement.family};
}

QString activationToken() {
    return qEnvironmentVariable("XDG_ACTIVATION_TOKEN");
}

} // namespace

HostApplication::HostApplication(HostedWidgets widgets, const Formats& formats)
    : m_widgets(std::move(widgets))
    , m_formats(formats)
    , m_links(m_bus, formats)
    , m_schedule(m_widgets.bundle,
                 {*m_clock, m_alarm, formats, SystemCalendar::current, m_widgets.entryWithoutData})
    , m_intents(m_widgets.bundle, {m_clock, m_identifiers}, formats)
    , m_cards(formats)
    , m_placements(stateFolder(), systemFileSystem(), warn)
    , m_desk({m_widgets.bundle, formats, *m_windows, m_screens, m_placements, *m_identifiers,
              [this](const Placement& placement) { return makeCard(keyOf(placement)); }}) {
    joinCards();
    joinSchedule();
    joinDesk();
    joinBus();
}

HostApplication::~HostApplication() = default;

int HostApplication::run() {
    if (m_service.start(activationToken()) == WidgetsService::Start::alreadyRunning)
        return EXIT_SUCCESS;
    return runUntilEnd();
}

int HostApplication::runWithGallery() {
    if (m_service.start(activationToken()) == WidgetsService::Start::alreadyRunning) {
        const auto name = QString::fromLatin1(WidgetsService::name);
        m_bus.connection().send(QDBusMessage::createMethodCall(
            name, QString::fromLatin1(WidgetsService::path), name + u'1', QStringLiteral("ShowGallery")));
        return EXIT_SUCCESS;
    }
    showGallery();
    return runUntilEnd();
}

int HostApplication::runUntilEnd() {
    QApplication::setQuitOnLastWindowClosed(false);
    SignalWatch signalWatch;
    connect(&signalWatch, &SignalWatch::endRequested, qApp, &QApplication::quit);
    connect(qApp, &QApplication::aboutToQuit, this, [this] { m_intents.drain(patienceAtEnd); });
    takePreferences(m_settings.preferences());
    m_desk.start();
    QTimer::singleShot(0, this, &HostApplication::watchDays);
    return QApplication::exec();
}

void HostApplication::joinCards() {
    connect(&m_cards, &CardShelf::linkActivated, this, [this](const std::string& kind, const Url& url) {
        m_linkKind = kind;
        m_links.open(url);
    });
    connect(&m_links, &LinkOpener::failed, this,
            [this](const QString& sentence) { m_cards.showNotice(m_linkKind, sentence); });
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
    connect(&m_schedule, &WidgetSchedule::settled, this, [this](const std::string& kind) {
        for (const IntentCall& call : std::exchange(m_performed[kind], {}))
            m_cards.endPending(kind, call);
    });
}

/// Nothing on screen waits for it, so that the first frame need not either.
void HostApplication::watchDays() {
    m_days = std::make_unique<DayWatch>();
    connect(m_days.get(), &DayWatch::zoneChanged, &m_schedule, &WidgetSchedule::applyZoneChange);
    connect(m_days.get(), &DayWatch::resumed, this, [this] {
        m_schedule.reloadAll();
        tick();
    });
}

void HostApplication::joinDesk() {
    connect(&m_desk, &Desk::placedChanged, this, &HostApplication::place);
    connect(&m_desk, &Desk::cardFocused, this, [](QWidget* card) {
        if (auto* shown = qobject_cast<CardWidget*>(card))
            shown->focusFirst();
    });
    connect(&m_desk, &Desk::addWidgetsAsked, this, &HostApplication::showGallery);
    connect(&m_desk, &Desk::reloadAsked, &m_schedule, &WidgetSchedule::reload);
    connect(&m_desk, &Desk::aboutAsked, this, &HostApplication::showAbout);
    connect(&m_desk, &Desk::quitAsked, qApp, &QApplication::quit);
    connect(&m_settings, &DesktopSettings::changed, this, &HostApplication::takePreferences);
}

void HostApplication::joinBus() {
    connect(&m_service, &WidgetsService::activated, &m_desk, &Desk::focusWidgets);
    connect(&m_service, &WidgetsService::focusRequested, &m_desk, &Desk::focusWidgets);
    connect(&m_service, &WidgetsService::galleryRequested, this, &HostApplication::showGallery);
    connect(&m_service, &WidgetsService::actionRequested, this, [this](const QString& action) {
        if (action == u"gallery")
            showGallery();
        else if (action == u"reload")
            m_schedule.reloadAll();
    });
    connect(&m_service, &WidgetsService::reloadRequested, &m_schedule, &WidgetSchedule::reload);
    connect(&m_service, &WidgetsService::reloadAllRequested, &m_schedule, &WidgetSchedule::reloadAll);
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
    if (const auto view = m_schedule.view(key))
        m_cards.show(key, *view, now);
    m_schedule.noteTick(m_cards.nextTick(now));
}

void HostApplication::tick() {
    const Instant now = m_clock->now();
    m_cards.setNow(now);
    m_schedule.noteTick(m_cards.nextTick(now));
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
    m_schedule.setPlaced(placed);
    m_service.setConfigurations({placed.begin(), placed.end()});
    for (const WidgetKey& key : placed)
        showView(key);
}

void HostApplication::takePreferences(const DesktopPreferences& preferences) {
    const Look look = lookOf(preferences);
    usePalette(preferences.isDark ? Shade::dark : Shade::light);
    m_cards.setLook(look);
    m_desk.setScale(look.scale);
    if (!m_gallery.isNull()) {
        m_gallery->deleteLater();
        m_gallery = nullptr;
        showGallery();
    }
}

void HostApplication::showGallery() {
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
    m_gallery->show();
    m_gallery->raise();
    m_gallery->activateWindow();
}

QWidget* HostApplication::makePreview(const StaticConfiguration& widget, WidgetFamily family) {
    const SystemCalendar calendar = SystemCalendar::current();
    const TimelineEntry entry = widget.getSnapshot({*m_clock, calendar, family, true});
    auto* card = new CardWidget(m_formats);
    card->setLook(m_cards.look());
    card->setNow(m_clock->now());
    card->setAttribute(Qt::WA_TransparentForMouseEvents);
    card->setEnabled(false);
    if (const auto view = renderedView(widget, entry, {family, calendar, m_formats}))
        card->setView(*view);
    return card;
}

void HostApplication::showAbout() {
    auto* box = new QMessageBox(QMessageBox::NoIcon, QStringLiteral("Vantel Widgets"),
                                QStringLiteral("Vantel Widgets " VANTEL_VERSION), QMessageBox::Close);
    box->setTextFormat(Qt::PlainText);
    box->setInformativeText(QString::fromStdString(
        m_formats.translated("Your tasks, meetings, group and mail at a glance, on your desktop.")));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setModal(false);
    box->show();
}

} // namespace vantel
