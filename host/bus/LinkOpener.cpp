#include "host/bus/LinkOpener.h"

#include "host/bus/SchemeHandlers.h"
#include "host/surface/WaylandEnvironment.h"
#include "platform/TextKey.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <utility>

namespace vantel {

using namespace Qt::StringLiterals;

namespace {

constexpr int portalPatience = 10'000; // milliseconds

const QString portal = u"org.freedesktop.portal.Desktop"_s;
const QString portalPath = u"/org/freedesktop/portal/desktop"_s;

/// Where the portal tells what came of a request: it makes the path of the asker's name and of a token that
/// the asker chooses, so that the answer can be awaited before the question is put.
QString requestPath(const QDBusConnection& connection, const QString& token) {
    const QString asker = connection.baseService().mid(1).replace(u'.', u'_');
    return portalPath + u"/request/"_s + asker + u'/' + token;
}

bool isSandboxed() {
    return QFile::exists(u"/.flatpak-info"_s);
}

bool startsDetached(const QString& program, const QStringList& arguments) {
    const QString path = QStandardPaths::findExecutable(program);
    if (path.isEmpty())
        return false;
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* own : waylandEnvironment)
        environment.remove(QString::fromLatin1(own));
    process.setProcessEnvironment(environment);
    process.setProgram(path);
    process.setArguments(arguments);
    return process.startDetached();
}

} // namespace

LinkDoors LinkDoors::ofTheDesktop() {
    return {[](const QString& scheme) {
                return isSandboxed() || hasSchemeHandler(scheme, ApplicationFolders::current());
            },
            startsDetached};
}

LinkOpener::LinkOpener(MessageBus& bus, const Formats& formats, std::string scheme, LinkDoors doors,
                       QObject* parent)
    : QObject(parent)
    , m_bus(bus)
    , m_formats(formats)
    , m_scheme(std::move(scheme))
    , m_doors(std::move(doors)) {}

void LinkOpener::open(const Url& url, Failed failed) {
    if (!url.text.starts_with(m_scheme + ":"))
        return fail(failed, textKey("This link leads somewhere else and was not opened."));
    if (!m_doors.hasHandler(QString::fromStdString(m_scheme)))
        return fail(failed, textKey("No application is installed that opens this."));
    const QString text = QString::fromStdString(url.text);
    if (m_bus.isConnected())
        askPortal(text, std::move(failed));
    else
        startOpener(text, failed);
}

void LinkOpener::askPortal(const QString& url, Failed failed) {
    const QString token = u"vantel"_s + QString::number(++m_requests);
    const QString request = requestPath(m_bus.connection(), token);
    heedResponses();
    m_asked[request] = std::move(failed);
    QDBusMessage call =
        QDBusMessage::createMethodCall(portal, portalPath, u"org.freedesktop.portal.OpenURI"_s, u"OpenURI"_s);
    call << QString() << url << QVariantMap{{u"handle_token"_s, token}};
    auto* watcher = new QDBusPendingCallWatcher(m_bus.connection().asyncCall(call, portalPatience), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, url, request, watcher] {
        watcher->deleteLater();
        takeReply(url, request, watcher->reply());
    });
}

/// A portal that is silent for long may still open the link: nothing else is tried then. Older portals choose
/// the path of the request themselves, and tell it here.
void LinkOpener::takeReply(const QString& url, const QString& request, const QDBusMessage& reply) {
    const auto given = reply.arguments().value(0).value<QDBusObjectPath>().path();
    if (given == request)
        return;
    const Failed failed = forget(request);
    if (reply.type() != QDBusMessage::ErrorMessage) {
        m_asked[given] = failed;
        return;
    }
    if (reply.errorName() == u"org.freedesktop.DBus.Error.NoReply"_s)
        fail(failed, textKey("The desktop did not answer."));
    else
        startOpener(url, failed);
}

/// Zero is success, and one is a user who thought better of it.
void LinkOpener::takeResponse(uint code, const QVariantMap& /*results*/, const QDBusMessage& message) {
    const Failed failed = forget(message.path());
    if (code > 1)
        fail(failed, textKey("The desktop did not open this."));
}

/// Those to all requests, once for each connection: the path of one may become known only after its response
/// was sent.
void LinkOpener::heedResponses() {
    QDBusConnection connection = m_bus.connection();
    if (std::exchange(m_heeded, connection.name()) != connection.name())
        connection.connect(portal, QString(), u"org.freedesktop.portal.Request"_s, u"Response"_s, this,
                           SLOT(takeResponse(uint, QVariantMap, QDBusMessage)));
}

LinkOpener::Failed LinkOpener::forget(const QString& request) {
    const auto asked = m_asked.extract(request);
    return asked.empty() ? Failed() : asked.mapped();
}

void LinkOpener::startOpener(const QString& url, const Failed& failed) {
    if (!m_doors.startDetached(u"xdg-open"_s, {url}))
        fail(failed, textKey("The desktop offers no way to open links."));
}

void LinkOpener::fail(const Failed& failed, const char* sentenceKey) const {
    if (failed)
        failed(QString::fromStdString(m_formats.translated(sentenceKey)));
}

} // namespace vantel
