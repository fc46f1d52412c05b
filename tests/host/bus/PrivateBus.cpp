#include "tests/host/bus/PrivateBus.h"

#include "tests/host/schedule/WindowThread.h"

#include <QDBusConnectionInterface>
#include <QDBusPendingCall>
#include <QDBusReply>
#include <fstream>

namespace vantel::testing {

using namespace Qt::StringLiterals;

namespace {

constexpr const char* configuration = R"(<busconfig>
<type>session</type>
<listen>unix:path=%1</listen>
<listen>unix:abstract=%1</listen>
<auth>EXTERNAL</auth>
<policy context="default">
<allow send_destination="*" eavesdrop="true"/>
<allow eavesdrop="true"/>
<%2 own="*"/>
</policy>
</busconfig>)";

QString freshName() {
    static int last = 0;
    return QStringLiteral("peer-%1").arg(++last);
}

} // namespace

PrivateBus::PrivateBus(Names names) {
    const QString rule = names == Names::allowed ? u"allow"_s : u"deny"_s;
    std::ofstream(m_folder / "bus.conf") << QString::fromLatin1(configuration)
                                                .arg(QString::fromStdString(m_folder / "socket"), rule)
                                                .toStdString();
    start();
}

QString PrivateBus::address() const {
    return u"unix:path="_s + QString::fromStdString(m_folder / "socket");
}

QString PrivateBus::abstractAddress() const {
    return u"unix:abstract="_s + QString::fromStdString(m_folder / "socket");
}

void PrivateBus::stop() {
    m_daemon.reset();
}

void PrivateBus::start() {
    m_daemon.emplace("/usr/bin/dbus-daemon",
                     std::vector<std::string>{"--config-file=" + (m_folder / "bus.conf").string(), "--nofork",
                                              "--nopidfile", "--print-address"});
    m_daemon->readLine(); // printed once it listens
}

void PrivateBus::fallSilent() {
    m_daemon->pause();
}

void PrivateBus::speak() {
    m_daemon->resume();
}

BusPeer::BusPeer(const PrivateBus& bus)
    : connection(QDBusConnection::connectToBus(bus.address(), freshName())) {}

BusPeer::~BusPeer() {
    QDBusConnection::disconnectFromBus(connection.name());
}

QDBusMessage BusPeer::call(const char* interface, const char* member, const QVariantList& arguments) {
    QDBusMessage message =
        QDBusMessage::createMethodCall(u"org.vantel.Widgets"_s, u"/org/vantel/Widgets"_s,
                                       QString::fromLatin1(interface), QString::fromLatin1(member));
    message.setArguments(arguments);
    const QDBusPendingCall pending = connection.asyncCall(message);
    waitUntil([&pending] { return pending.isFinished(); });
    return pending.reply();
}

bool BusPeer::seesService() const {
    return connection.interface()->isServiceRegistered(u"org.vantel.Widgets"_s);
}

} // namespace vantel::testing
