#include "host/bus/LinkOpener.h"

#include "core/WidgetShared.h"
#include "host/bus/SchemeHandlers.h"
#include "widgets/TextKey.h"

#include <QDBusMessage>
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

QString ownScheme() {
    return QString::fromLatin1(WidgetShared::urlScheme.data(), WidgetShared::urlScheme.size());
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
    environment.remove(u"QT_WAYLAND_USE_BYPASSWINDOWMANAGERHINT"_s); // meant for this program's own windows
    process.setProcessEnvironment(environment);
    process.setProgram(path);
    process.setArguments(arguments);
    return process.startDetached();
}

} // namespace

bool isOwnLink(const Url& url) {
    return url.text.starts_with(std::string(WidgetShared::urlScheme) + ":");
}

LinkDoors LinkDoors::ofTheDesktop() {
    return {[] { return isSandboxed() || hasSchemeHandler(ownScheme(), ApplicationFolders::current()); },
            startsDetached};
}

LinkOpener::LinkOpener(SessionBus& bus, const Formats& formats, LinkDoors doors, QObject* parent)
    : QObject(parent)
    , m_bus(bus)
    , m_formats(formats)
    , m_doors(std::move(doors)) {}

void LinkOpener::open(const Url& url) {
    if (!isOwnLink(url))
        return fail(textKey("This link leads somewhere else and was not opened."));
    if (!m_doors.hasHandler())
        return fail(textKey("No application is installed that opens this."));
    const QString text = QString::fromStdString(url.text);
    if (m_bus.isConnected())
        askPortal(text);
    else
        startOpener(text);
}

void LinkOpener::askPortal(const QString& url) {
    const QString token = u"vantel"_s + QString::number(++m_requests);
    const QString request = requestPath(m_bus.connection(), token);
    heed(request);
    QDBusMessage call =
        QDBusMessage::createMethodCall(portal, portalPath, u"org.freedesktop.portal.OpenURI"_s, u"OpenURI"_s);
    call << QString() << url << QVariantMap{{u"handle_token"_s, token}};
    auto* watcher = new QDBusPendingCallWatcher(m_bus.connection().asyncCall(call, portalPatience), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, url, request, watcher] {
        watcher->deleteLater();
        takeReply(url, request, watcher->reply());
    });
}

/// A portal that is silent for long may still open the link: nothing else is tried then.
void LinkOpener::takeReply(const QString& url, const QString& request, const QDBusMessage& reply) {
    if (reply.type() != QDBusMessage::ErrorMessage)
        return;
    forget(request);
    if (reply.errorName() == u"org.freedesktop.DBus.Error.NoReply"_s)
        fail(textKey("The desktop did not answer."));
    else
        startOpener(url);
}

/// Zero is success, and one is a user who thought better of it.
void LinkOpener::takeResponse(uint code, const QVariantMap& /*results*/, const QDBusMessage& message) {
    forget(message.path());
    if (code > 1)
        fail(textKey("The desktop offers no way to open links."));
}

void LinkOpener::heed(const QString& request) {
    QDBusConnection(m_bus.connection())
        .connect(portal, request, u"org.freedesktop.portal.Request"_s, u"Response"_s, this,
                 SLOT(takeResponse(uint, QVariantMap, QDBusMessage)));
}

void LinkOpener::forget(const QString& request) {
    QDBusConnection(m_bus.connection())
        .disconnect(portal, request, u"org.freedesktop.portal.Request"_s, u"Response"_s, this,
                    SLOT(takeResponse(uint, QVariantMap, QDBusMessage)));
}

void LinkOpener::startOpener(const QString& url) {
    if (!m_doors.startDetached(u"xdg-open"_s, {url}))
        fail(textKey("The desktop offers no way to open links."));
}

void LinkOpener::fail(const char* sentenceKey) {
    Q_EMIT failed(QString::fromStdString(m_formats.translated(sentenceKey)));
}

} // namespace vantel
