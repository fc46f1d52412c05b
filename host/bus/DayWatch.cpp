#include "host/bus/DayWatch.h"

#include <utility>

namespace vantel {

using namespace Qt::StringLiterals;

namespace {

const QString login = u"org.freedesktop.login1"_s;
const QString timedate = u"org.freedesktop.timedate1"_s;
const QString zoneProperty = u"Timezone"_s;

} // namespace

DayWatch::DayWatch(const std::string& zoneFile, QObject* parent)
    : QObject(parent)
    , m_zoneFile(zoneFile) {
    connect(&m_zoneFile, &FileWatch::changed, this, &DayWatch::zoneChanged);
}

void DayWatch::listenTo(const MessageBus& systemBus) {
    connect(&systemBus, &MessageBus::reconnected, this,
            [this, &systemBus] { subscribe(systemBus.connection()); });
    if (systemBus.isConnected())
        subscribe(systemBus.connection());
}

void DayWatch::subscribe(QDBusConnection systemBus) {
    systemBus.connect(login, u"/org/freedesktop/login1"_s, u"org.freedesktop.login1.Manager"_s,
                      u"PrepareForSleep"_s, this, SLOT(handleSleep(bool)));
    systemBus.connect(timedate, u"/org/freedesktop/timedate1"_s, u"org.freedesktop.DBus.Properties"_s,
                      u"PropertiesChanged"_s, this,
                      SLOT(handleProperties(QString, QVariantMap, QStringList)));
    // Nobody could tell of a sleep that ended while the bus was lost.
    if (std::exchange(m_wasSubscribed, true))
        Q_EMIT resumed();
}

void DayWatch::handleSleep(bool isGoingToSleep) {
    if (!isGoingToSleep)
        Q_EMIT resumed();
}

void DayWatch::handleProperties(const QString& interface, const QVariantMap& changed,
                                const QStringList& invalidated) {
    if (interface == timedate && (changed.contains(zoneProperty) || invalidated.contains(zoneProperty)))
        Q_EMIT zoneChanged();
}

} // namespace vantel
