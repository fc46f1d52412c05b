#pragma once

#include "host/bus/DesktopPreferences.h"
#include "host/bus/SessionBus.h"

#include <QDBusVariant>
#include <QObject>

class QDBusMessage;
class QDBusPendingCallWatcher;

namespace vantel {

/// The user's preferences for the whole desktop, from the settings portal, else from the toolkit's palette;
/// kept up to date. Never waits: at first the palette decides, and what the portal answers is a change.
class DesktopSettings final : public QObject {
    Q_OBJECT

public:
    /// `bus` lives longer.
    explicit DesktopSettings(SessionBus& bus, QObject* parent = nullptr);

    const DesktopPreferences& preferences() const { return m_preferences; }

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// Emitted only when something differs.
    void changed(const vantel::DesktopPreferences& preferences);

private:
    Q_SLOT void takeChange(const QString& space, const QString& key, const QDBusVariant& value);

    void askForAll();
    void ask(const SettingName& name, const QString& method);
    void takeReply(const SettingName& name, const QString& method, const QDBusMessage& reply);
    void update();

    SessionBus& m_bus;
    PortalReadings m_readings;
    DesktopPreferences m_preferences;
};

} // namespace vantel
