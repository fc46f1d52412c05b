#pragma once

#include "host/bus/BusKnock.h"
#include "host/schedule/FileWatch.h"

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <QTimer>
#include <chrono>
#include <memory>

class QSocketNotifier;

namespace vantel {

/// The program's connection to a bus. There may be none: everything that needs it goes without.
///
/// A bus that is not there, or is lost, is awaited without any wake-up: its socket file is watched. Each time
/// that changes, and when the bus is lost, some attempts are made within two seconds, since a bus makes the
/// file before it listens. Where there is no file to watch, `lookAgain` is all that finds it.
///
/// A bus that lets the program in and does not speak is heard as soon as it does; nobody waits for it.
class MessageBus final : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(MessageBus)

public:
    static constexpr std::chrono::milliseconds firstPause{80};
    static constexpr int attempts = 3; ///< each after a pause four times as long as the one before

    /// Connects at once, which takes the bus a millisecond, unless it was silent when it was knocked at or
    /// nobody was there. `pause` is the first pause before another attempt.
    explicit MessageBus(BusKnock knock, std::chrono::milliseconds pause = firstPause,
                        QObject* parent = nullptr);
    ~MessageBus() override;

    bool isConnected() const { return m_connection.isConnected(); }

    /// Changes with every connection: never keep it.
    const QDBusConnection& connection() const { return m_connection; }

    /// For moments at which the program is awake anyway: tries to connect, where it is not.
    void lookAgain();

Q_SIGNALS:
    /// The bus is there, or back, under another connection, which knows nothing of the names, objects and
    /// matches of the one before.
    void reconnected();

private:
    Q_SLOT void handleLoss();
    void follow();
    void takeUp();
    void listen();
    void stopListening();
    void connectNow();
    void await();
    void beginAttempts();
    void attempt();

    BusKnock m_knock; ///< the last one
    std::chrono::milliseconds m_firstPause;
    QDBusConnection m_connection;
    std::unique_ptr<FileWatch> m_watch;          ///< while there is no bus
    std::unique_ptr<QSocketNotifier> m_listener; ///< while there is a silent one
    QTimer m_retry;
    int m_attemptsLeft = 0;
};

} // namespace vantel
