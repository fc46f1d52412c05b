#include "host/bus/WidgetsService.h"

#include "host/bus/WidgetsAdaptors.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusReply>

namespace vantel {

namespace {

QString serviceName() {
    return QString::fromLatin1(WidgetsService::name);
}

QString objectPath() {
    return QString::fromLatin1(WidgetsService::path);
}

QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

} // namespace

WidgetsService::WidgetsService(MessageBus& bus, QObject* parent)
    : QObject(parent)
    , m_bus(bus) {
    qDBusRegisterMetaType<WidgetConfiguration>();
    qDBusRegisterMetaType<WidgetConfigurations>();
    new ApplicationAdaptor(*this, &m_exported);
    new WidgetsAdaptor(*this, &m_exported);
}

WidgetsService::~WidgetsService() {
    if (m_bus.isConnected())
        QDBusConnection(m_bus.connection()).unregisterService(serviceName());
}

WidgetsService::Start WidgetsService::start(const QString& activationToken, const QString& action) {
    const Start outcome = m_bus.isConnected() ? takeName() : Start::noBus;
    if (outcome == Start::alreadyRunning)
        askOwner(activationToken, action);
    else
        connect(&m_bus, &MessageBus::reconnected, this, &WidgetsService::takeNameAgain);
    return outcome;
}

void WidgetsService::setConfigurations(const std::vector<WidgetKey>& placed) {
    m_configurations.clear();
    for (const WidgetKey& key : placed)
        m_configurations.append({text(key.kind), text(vantel::name(key.family))});
}

WidgetsService::Start WidgetsService::takeName() {
    using Reply = QDBusConnectionInterface::RegisterServiceReply;
    QDBusConnection connection = m_bus.connection();
    QDBusConnectionInterface* bus = connection.interface();
    if (bus == nullptr)
        return Start::noBus;
    connection.registerObject(objectPath(), &m_exported, QDBusConnection::ExportAdaptors);
    const QDBusReply<Reply> reply =
        bus->registerService(serviceName(), QDBusConnectionInterface::DontQueueService,
                             QDBusConnectionInterface::DontAllowReplacement);
    if (reply.isValid())
        return reply.value() == Reply::ServiceRegistered ? Start::owned : Start::alreadyRunning;
    qWarning("The session bus does not give the name %s: %s", name, qUtf8Printable(reply.error().name()));
    return Start::noBus;
}

void WidgetsService::takeNameAgain() {
    if (takeName() == Start::alreadyRunning)
        qWarning("%s belongs to another process since the bus is back", name);
}

/// Waits for the answer: a call that is only sent is lost when the program ends.
void WidgetsService::askOwner(const QString& activationToken, const QString& action) {
    constexpr int patience = 2000; // milliseconds
    QDBusMessage call = QDBusMessage::createMethodCall(
        serviceName(), objectPath(), QStringLiteral("org.freedesktop.Application"),
        action.isEmpty() ? QStringLiteral("Activate") : QStringLiteral("ActivateAction"));
    QVariantMap platformData;
    if (!activationToken.isEmpty())
        platformData.insert(QStringLiteral("activation-token"), activationToken);
    if (!action.isEmpty())
        call << action << QVariantList();
    call << platformData;
    m_bus.connection().call(call, QDBus::Block, patience);
}

} // namespace vantel
