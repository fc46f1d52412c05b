#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <QTimer>
#include <chrono>

namespace vantel {

/// Where the session bus listens: `DBUS_SESSION_BUS_ADDRESS`, else the user's runtime folder; empty for
/// nowhere.
QString sessionBusAddress();

/// The program's one connection to the session bus. There may be none: everything that needs it goes without.
///
/// A connection that is lost is sought again after one second, then after pauses that double up to five
/// minutes, until it is back. Where there was no bus at the start, nobody looks for one: a session has its
/// bus from the beginning or not at all.
class SessionBus final : public QObject {
    Q_OBJECT

public:
    static constexpr std::chrono::milliseconds firstPause{1000};
    static constexpr std::chrono::milliseconds longestPause{300'000};

    /// Connects at once, which takes the bus a millisecond. `pause` is the first pause before another
    /// attempt.
    explicit SessionBus(QString address = sessionBusAddress(), std::chrono::milliseconds pause = firstPause,
                        QObject* parent = nullptr);
    ~SessionBus() override;

    bool isConnected() const { return m_connection.isConnected(); }

    /// Changes with every connection: never keep it.
    const QDBusConnection& connection() const { return m_connection; }

Q_SIGNALS:
    /// The bus is back, under another connection, which knows nothing of the names, objects and matches of
    /// the one before.
    void reconnected();

private:
    Q_SLOT void handleLoss();
    void connectNow();
    void retry();

    QString m_address;
    std::chrono::milliseconds m_firstPause;
    QDBusConnection m_connection;
    QTimer m_retry;
};

} // namespace vantel
