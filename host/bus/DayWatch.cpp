#include "host/bus/DayWatch.h"

namespace vantel {

namespace {

const QString login = u"org.freedesktop.login1"_qs;
const QString timedate = u"org.freedesktop.timedate1"_qs;
const QString zoneProperty = u"Timezone"_qs;

} // namespace

DayWatch::DayWatch(QDBusConnection systemBus, const std::string& zoneFile, QObject* parent)
    : QObject(parent)
    , m_zoneFile(zoneFile) {
    connect(&m_zoneFile, &FileWatch::changed, this, &DayWatch::zoneChanged);
    if (!systemBus.isConnected())
        return;
    systemBus.connect(login, u"/org/freedesktop/login1"_qs, u"org.freedesktop.login1.Manager"_qs,
                      u"PrepareForSleep"_qs, this, SLOT(handleSleep(bool)));
    systemBus.connect(timedate, u"/org/freedesktop/timedate1"_qs, u"org.freedesktop.DBus.Properties"_qs,
                      u"PropertiesChanged"_qs, this,
                      SLOT(handleProperties(QString, QVariantMap, QStringList)));
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
