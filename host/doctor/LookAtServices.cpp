#include "core/WidgetShared.h"
#include "host/bus/BusKnock.h"
#include "host/bus/SchemeHandlers.h"
#include "host/bus/WidgetsService.h"
#include "host/doctor/LookAround.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusVariant>
#include <QStandardPaths>
#include <QStringList>

namespace vantel {

using namespace Qt::StringLiterals;

namespace {

constexpr int patience = 700; // milliseconds

const QString daemonName = u"org.freedesktop.DBus"_s;
const QString portalName = u"org.freedesktop.portal.Desktop"_s;
const QString portalPath = u"/org/freedesktop/portal/desktop"_s;

QVariant askDaemon(const QDBusConnection& bus, const QString& member, const QVariantList& arguments = {}) {
    QDBusMessage call =
        QDBusMessage::createMethodCall(daemonName, u"/org/freedesktop/DBus"_s, daemonName, member);
    call.setArguments(arguments);
    const QDBusMessage reply = bus.call(call, QDBus::Block, patience);
    const bool isAnswer = reply.type() == QDBusMessage::ReplyMessage && !reply.arguments().isEmpty();
    return isAnswer ? reply.arguments().first() : QVariant();
}

QDBusPendingCall askVersion(const QDBusConnection& bus, const QString& interface) {
    QDBusMessage call = QDBusMessage::createMethodCall(portalName, portalPath,
                                                       u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    call << interface << u"version"_s;
    return bus.asyncCall(call, patience);
}

bool isSilence(const QString& error) {
    return error == u"org.freedesktop.DBus.Error.NoReply"_s ||
           error == u"org.freedesktop.DBus.Error.Timeout"_s ||
           error == u"org.freedesktop.DBus.Error.TimedOut"_s;
}

ServiceAnswer takeVersion(QDBusPendingCall call) {
    call.waitForFinished();
    const QDBusMessage reply = call.reply();
    if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty())
        return {.kind = isSilence(reply.errorName()) ? ServiceAnswer::Kind::silent
                                                     : ServiceAnswer::Kind::missing};
    const QVariant version = reply.arguments().first().value<QDBusVariant>().variant();
    return {.kind = ServiceAnswer::Kind::answering, .version = version.toUInt()};
}

std::optional<ProcessFacts> runningHost(const QDBusConnection& bus) {
    const QVariant number =
        askDaemon(bus, u"GetConnectionUnixProcessID"_s, {QString::fromLatin1(WidgetsService::name)});
    return number.isValid() ? std::optional(processFacts(number.toUInt())) : std::nullopt;
}

/// Where nobody names a bus, one that is not there is no trouble.
SessionBusFacts withoutBus() {
    const bool isNamed = !qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS");
    return {.kind = isNamed ? SessionBusFacts::Kind::silent : SessionBusFacts::Kind::none};
}

} // namespace

SessionBusFacts lookAtSessionBus() {
    const QString address = sessionBusAddress();
    if (address.isEmpty())
        return {};
    const auto bus = QDBusConnection::connectToBus(address, u"vantel-doctor-session"_s);
    if (!bus.isConnected())
        return withoutBus();
    const QDBusPendingCall settings = askVersion(bus, u"org.freedesktop.portal.Settings"_s);
    const QDBusPendingCall openLinks = askVersion(bus, u"org.freedesktop.portal.OpenURI"_s);
    return {.kind = SessionBusFacts::Kind::answering,
            .settings = takeVersion(settings),
            .openLinks = takeVersion(openLinks),
            .host = runningHost(bus)};
}

SystemBusFacts lookAtSystemBus() {
    const auto bus = QDBusConnection::connectToBus(systemBusAddress(), u"vantel-doctor-system"_s);
    if (!bus.isConnected())
        return {};
    const QStringList names = askDaemon(bus, u"ListNames"_s).toStringList() +
                              askDaemon(bus, u"ListActivatableNames"_s).toStringList();
    return {.hasLogin = names.contains(u"org.freedesktop.login1"_s),
            .hasTimeDate = names.contains(u"org.freedesktop.timedate1"_s)};
}

LinkFacts lookAtApplications() {
    const std::string scheme(WidgetShared::urlScheme);
    return {.hasHandler = hasSchemeHandler(QString::fromStdString(scheme), ApplicationFolders::current()),
            .hasProgram = !QStandardPaths::findExecutable(u"xdg-open"_s).isEmpty()};
}

} // namespace vantel
