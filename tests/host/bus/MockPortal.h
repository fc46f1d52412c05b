#pragma once

#include "tests/host/bus/PrivateBus.h"

#include <QDBusVirtualObject>
#include <QMap>
#include <QStringList>
#include <optional>

namespace vantel::testing {

/// A desktop portal that answers as a test wants. Calls are answered while the test serves events.
class MockPortal final : public QDBusVirtualObject {
public:
    explicit MockPortal(const PrivateBus& bus);
    ~MockPortal() override;

    /// The settings by "namespace key". One that is missing is answered as not found.
    QMap<QString, QVariant> settings;
    bool hasReadOne = true;
    bool answersLinks = true;
    bool heedsTokens = true;      ///< else it chooses the paths of requests itself, as older ones do
    std::optional<uint> response; ///< follows the reply to OpenURI
    QStringList calls;            ///< "ReadOne namespace key", "OpenURI url", in their order

    /// Answers a request to open a link, counted from 0, in addition to `response`.
    void respondTo(int request, uint code) const;

    /// Tells everybody of a setting.
    void change(const QString& space, const QString& key, const QVariant& value);

    /// Sends a SettingChanged signal with any arguments.
    void sendChange(const QVariantList& arguments);

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;
    QString introspect(const QString&) const override { return {}; }

private:
    QString requestPath(const QDBusMessage& message) const;
    QDBusMessage answer(const QDBusMessage& message) const;
    QDBusMessage setting(const QDBusMessage& message) const;

    BusPeer m_peer;
    QList<QDBusMessage> m_requests; ///< to open a link
};

} // namespace vantel::testing
