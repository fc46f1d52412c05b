#include "host/bus/DesktopSettings.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QEvent>
#include <QEventLoop>
#include <QTimer>
#include <utility>

namespace vantel {

using namespace Qt::StringLiterals;

namespace {

const QString portal = u"org.freedesktop.portal.Desktop"_s;
const QString portalPath = u"/org/freedesktop/portal/desktop"_s;
const QString settings = u"org.freedesktop.portal.Settings"_s;
const QString readOne = u"ReadOne"_s;
const QString readWrapped = u"Read"_s; // of portals before 1.17.1; wraps the value once more

} // namespace

DesktopSettings::DesktopSettings(MessageBus& bus, std::function<bool()> isPaletteDark, QObject* parent)
    : QObject(parent)
    , m_bus(bus)
    , m_isPaletteDark(std::move(isPaletteDark))
    , m_preferences(vantel::preferences({}, m_isPaletteDark())) {
    // Otherwise the bus library may not know the type yet, and then it quietly connects no slot that takes
    // it.
    qRegisterMetaType<QDBusVariant>("QDBusVariant");
    QCoreApplication::instance()->installEventFilter(this);
    connect(&m_bus, &MessageBus::reconnected, this, &DesktopSettings::askForAll);
    askForAll();
}

void DesktopSettings::awaitAnswers(std::chrono::milliseconds patience) const {
    if (m_unanswered == 0)
        return;
    QEventLoop loop;
    connect(this, &DesktopSettings::answered, &loop, &QEventLoop::quit);
    QTimer::singleShot(patience, &loop, &QEventLoop::quit);
    loop.exec();
}

bool DesktopSettings::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ApplicationPaletteChange && watched == QCoreApplication::instance())
        update();
    return false;
}

void DesktopSettings::askForAll() {
    if (!m_bus.isConnected())
        return;
    QDBusConnection(m_bus.connection())
        .connect(portal, portalPath, settings, u"SettingChanged"_s, this,
                 SLOT(takeChange(QString, QString, QDBusVariant)));
    for (const SettingName& name : portalSettings())
        ask(name, readOne);
}

void DesktopSettings::ask(const SettingName& name, const QString& method) {
    QDBusMessage call = QDBusMessage::createMethodCall(portal, portalPath, settings, method);
    call << name.space << name.key;
    auto* watcher = new QDBusPendingCallWatcher(m_bus.connection().asyncCall(call), this);
    ++m_unanswered;
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, name, method, watcher] {
        watcher->deleteLater();
        takeReply(name, method, watcher->reply());
        if (--m_unanswered == 0)
            Q_EMIT answered();
    });
}

void DesktopSettings::takeReply(const SettingName& name, const QString& method, const QDBusMessage& reply) {
    if (reply.type() == QDBusMessage::ReplyMessage && reply.arguments().size() == 1) {
        m_readings.take(name, reply.arguments().first());
        update();
    } else if (method == readOne && reply.errorName() == u"org.freedesktop.DBus.Error.UnknownMethod"_s) {
        ask(name, readWrapped);
    }
}

void DesktopSettings::takeChange(const QString& space, const QString& key, const QDBusVariant& value) {
    m_readings.take({space, key}, value.variant());
    update();
}

void DesktopSettings::update() {
    const DesktopPreferences now = vantel::preferences(m_readings, m_isPaletteDark());
    if (now == m_preferences)
        return;
    m_preferences = now;
    Q_EMIT changed(m_preferences);
}

} // namespace vantel
