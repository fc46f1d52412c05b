#include "host/bus/SessionBus.h"

#include <QAtomicInt>
#include <algorithm>
#include <utility>

namespace vantel {

namespace {

QString freshName() {
    static QAtomicInt last;
    return QStringLiteral("vantel-session-%1").arg(last.fetchAndAddRelaxed(1));
}

} // namespace

QString sessionBusAddress() {
    QString address = qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS");
    const QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (!address.isEmpty() || folder.isEmpty())
        return address;
    return QStringLiteral("unix:path=") + folder + QStringLiteral("/bus");
}

SessionBus::SessionBus(QString address, std::chrono::milliseconds pause, QObject* parent)
    : QObject(parent)
    , m_address(std::move(address))
    , m_firstPause(pause)
    , m_connection(QString()) {
    m_retry.setSingleShot(true);
    connect(&m_retry, &QTimer::timeout, this, &SessionBus::retry);
    connectNow();
}

SessionBus::~SessionBus() {
    QDBusConnection::disconnectFromBus(m_connection.name());
}

void SessionBus::connectNow() {
    if (m_address.isEmpty())
        return;
    m_connection = QDBusConnection::connectToBus(m_address, freshName());
    m_connection.connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"),
                         QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"), this,
                         SLOT(handleLoss()));
}

void SessionBus::handleLoss() {
    if (m_retry.isActive())
        return;
    QDBusConnection::disconnectFromBus(m_connection.name());
    m_retry.start(m_firstPause);
}

void SessionBus::retry() {
    connectNow();
    if (m_connection.isConnected()) {
        Q_EMIT reconnected();
        return;
    }
    QDBusConnection::disconnectFromBus(m_connection.name());
    m_retry.start(std::min(m_retry.intervalAsDuration() * 2, longestPause));
}

} // namespace vantel
