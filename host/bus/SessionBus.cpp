#include "host/bus/SessionBus.h"

#include <QAtomicInt>
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

std::optional<std::string> busSocket(const QString& address) {
    const QString prefix = QStringLiteral("unix:");
    const QString key = QStringLiteral("path=");
    for (const QString& each : address.split(u';')) {
        if (!each.startsWith(prefix))
            continue;
        for (const QString& part : each.mid(prefix.size()).split(u','))
            if (part.startsWith(key))
                return QByteArray::fromPercentEncoding(part.mid(key.size()).toUtf8()).toStdString();
    }
    return std::nullopt;
}

SessionBus::SessionBus(QString address, std::chrono::milliseconds pause, QObject* parent)
    : QObject(parent)
    , m_address(std::move(address))
    , m_firstPause(pause)
    , m_connection(QString()) {
    m_retry.setSingleShot(true);
    connect(&m_retry, &QTimer::timeout, this, &SessionBus::attempt);
    connectNow();
    if (!isConnected())
        await();
}

SessionBus::~SessionBus() {
    QDBusConnection::disconnectFromBus(m_connection.name());
}

void SessionBus::connectNow() {
    if (m_address.isEmpty())
        return;
    m_connection = QDBusConnection::connectToBus(m_address, freshName());
    if (!isConnected())
        return QDBusConnection::disconnectFromBus(m_connection.name());
    m_connection.connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"),
                         QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"), this,
                         SLOT(handleLoss()));
}

void SessionBus::await() {
    const auto socket = busSocket(m_address);
    if (!socket)
        return;
    m_watch = std::make_unique<FileWatch>(*socket);
    connect(m_watch.get(), &FileWatch::changed, this, &SessionBus::beginAttempts);
}

void SessionBus::handleLoss() {
    if (isConnected())
        return;
    QDBusConnection::disconnectFromBus(m_connection.name());
    await();
    beginAttempts();
}

void SessionBus::beginAttempts() {
    m_attemptsLeft = attempts;
    m_retry.start(m_firstPause);
}

void SessionBus::attempt() {
    if (--m_attemptsLeft > 0)
        m_retry.start(m_retry.intervalAsDuration() * 4);
    lookAgain();
}

void SessionBus::lookAgain() {
    if (isConnected())
        return;
    connectNow();
    if (!isConnected())
        return;
    m_retry.stop();
    m_watch.reset();
    Q_EMIT reconnected();
}

} // namespace vantel
