#include "tests/host/bus/MockPortal.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusVariant>

namespace vantel::testing {

using namespace Qt::StringLiterals;

namespace {

const QString portalPath = u"/org/freedesktop/portal/desktop"_s;
const QString unknownMethod = u"org.freedesktop.DBus.Error.UnknownMethod"_s;

QString wordsOf(const QDBusMessage& message) {
    QStringList words{message.member()};
    for (const QVariant& argument : message.arguments())
        if (argument.typeId() == QMetaType::QString && !argument.toString().isEmpty())
            words.append(argument.toString());
    return words.join(u' ');
}

QVariant wrapped(const QVariant& value) {
    return QVariant::fromValue(QDBusVariant(value));
}

} // namespace

MockPortal::MockPortal(const PrivateBus& bus)
    : m_peer(bus) {
    m_peer.connection.registerVirtualObject(portalPath, this);
    m_peer.connection.registerService(u"org.freedesktop.portal.Desktop"_s);
}

MockPortal::~MockPortal() = default;

void MockPortal::change(const QString& space, const QString& key, const QVariant& value) {
    sendChange({space, key, wrapped(value)});
}

void MockPortal::sendChange(const QVariantList& arguments) {
    QDBusMessage signal =
        QDBusMessage::createSignal(portalPath, u"org.freedesktop.portal.Settings"_s, u"SettingChanged"_s);
    signal.setArguments(arguments);
    m_peer.connection.send(signal);
}

bool MockPortal::handleMessage(const QDBusMessage& message, const QDBusConnection& connection) {
    calls.append(wordsOf(message));
    connection.send(answer(message));
    if (message.member() == u"OpenURI"_s)
        m_requests.append(message);
    if (response && message.member() == u"OpenURI"_s)
        respondTo(static_cast<int>(m_requests.size()) - 1, *response);
    return true;
}

void MockPortal::respondTo(int request, uint code) const {
    const QDBusMessage& message = m_requests.at(request);
    QDBusMessage signal = QDBusMessage::createTargetedSignal(
        message.service(), requestPath(message), u"org.freedesktop.portal.Request"_s, u"Response"_s);
    signal << code << QVariantMap();
    m_peer.connection.send(signal);
}

/// The path of the request that a message opens.
QString MockPortal::requestPath(const QDBusMessage& message) const {
    const auto options = qdbus_cast<QVariantMap>(message.arguments().value(2));
    const QString token = options.value(u"handle_token"_s).toString();
    const QString asker = message.service().mid(1).replace(u'.', u'_');
    return portalPath + u"/request/"_s + (heedsTokens ? asker + u'/' + token : u"own"_s + token);
}

QDBusMessage MockPortal::answer(const QDBusMessage& message) const {
    const QString member = message.member();
    if (member == u"OpenURI"_s && answersLinks)
        return message.createReply(QVariant::fromValue(QDBusObjectPath(requestPath(message))));
    if (member == u"Read"_s || (member == u"ReadOne"_s && hasReadOne))
        return setting(message);
    return message.createErrorReply(unknownMethod, u"no such method"_s);
}

QDBusMessage MockPortal::setting(const QDBusMessage& message) const {
    const auto found = settings.find(wordsOf(message).section(u' ', 1));
    if (found == settings.end())
        return message.createErrorReply(u"org.freedesktop.portal.Error.NotFound"_s, u"no such setting"_s);
    const QVariant once = wrapped(*found);
    return message.createReply(message.member() == u"Read"_s ? wrapped(once) : once);
}

} // namespace vantel::testing
