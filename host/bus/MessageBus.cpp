#include "host/bus/MessageBus.h"

#include <QAtomicInt>
#include <QSocketNotifier>
#include <utility>

namespace vantel {

namespace {

QString freshName() {
    static QAtomicInt last;
    return QStringLiteral("vantel-bus-%1").arg(last.fetchAndAddRelaxed(1));
}

} // namespace

MessageBus::MessageBus(BusKnock knock, std::chrono::milliseconds pause, QObject* parent)
    : QObject(parent)
    , m_knock(std::move(knock))
    , m_firstPause(pause)
    , m_connection(QString()) {
    m_retry.setSingleShot(true);
    connect(&m_retry, &QTimer::timeout, this, &MessageBus::attempt);
    follow();
    if (!isConnected())
        await();
}

MessageBus::~MessageBus() {
    QDBusConnection::disconnectFromBus(m_connection.name());
}

void MessageBus::follow() {
    switch (m_knock.answer()) {
    case BusKnock::Answer::heard:
    case BusKnock::Answer::noDoor:
        return connectNow();
    case BusKnock::Answer::silence:
        return listen();
    case BusKnock::Answer::hungUp:
    case BusKnock::Answer::nobody:
        return;
    }
}

void MessageBus::listen() {
    if (m_knock.descriptor() < 0)
        return;
    m_listener = std::make_unique<QSocketNotifier>(m_knock.descriptor(), QSocketNotifier::Read);
    connect(m_listener.get(), &QSocketNotifier::activated, this, &MessageBus::takeUp);
}

void MessageBus::stopListening() {
    if (!m_listener)
        return;
    m_listener->setEnabled(false);
    m_listener.release()->deleteLater(); // It may be the one that calls.
}

void MessageBus::connectNow() {
    if (m_knock.address().isEmpty())
        return;
    m_connection = QDBusConnection::connectToBus(m_knock.address(), freshName());
    if (!isConnected())
        return QDBusConnection::disconnectFromBus(m_connection.name());
    m_connection.connect(QString(), QStringLiteral("/org/freedesktop/DBus/Local"),
                         QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"), this,
                         SLOT(handleLoss()));
}

void MessageBus::await() {
    const auto socket = busSocket(m_knock.address());
    if (!socket)
        return;
    m_watch = std::make_unique<FileWatch>(*socket);
    connect(m_watch.get(), &FileWatch::changed, this, &MessageBus::beginAttempts);
}

void MessageBus::handleLoss() {
    if (isConnected())
        return;
    QDBusConnection::disconnectFromBus(m_connection.name());
    await();
    beginAttempts();
}

void MessageBus::beginAttempts() {
    m_attemptsLeft = attempts;
    m_retry.start(m_firstPause);
}

void MessageBus::attempt() {
    if (--m_attemptsLeft > 0)
        m_retry.start(m_retry.intervalAsDuration() * 4);
    lookAgain();
}

void MessageBus::lookAgain() {
    if (isConnected())
        return;
    stopListening();
    m_knock = BusKnock(m_knock.address(), std::chrono::milliseconds::zero());
    takeUp();
}

void MessageBus::takeUp() {
    stopListening();
    follow();
    if (!isConnected())
        return;
    m_retry.stop();
    m_watch.reset();
    Q_EMIT reconnected();
}

} // namespace vantel
