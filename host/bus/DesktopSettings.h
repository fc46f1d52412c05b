#pragma once

#include "host/bus/DesktopPreferences.h"
#include "host/bus/MessageBus.h"

#include <QDBusVariant>
#include <QObject>
#include <chrono>
#include <functional>

class QDBusMessage;
class QDBusPendingCallWatcher;

namespace vantel {

/// The user's preferences for the whole desktop, from the settings portal, else from the toolkit's palette;
/// kept up to date. At first the palette decides, and what the portal answers is a change.
class DesktopSettings final : public QObject {
    Q_OBJECT

public:
    /// `bus` lives longer. `isPaletteDark` tells of the desktop's own palette, where the program may have
    /// put another one in its place.
    DesktopSettings(MessageBus& bus, std::function<bool()> isPaletteDark, QObject* parent = nullptr);

    /// Waits until the portal has answered all that it was asked, or the time is over; meanwhile events
    /// are handled. Ends at once where there is no portal.
    void awaitAnswers(std::chrono::milliseconds patience) const;

    const DesktopPreferences& preferences() const { return m_preferences; }

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// Emitted only when something differs.
    void changed(const vantel::DesktopPreferences& preferences);

    /// Nothing that was asked is without an answer.
    void answered();

private:
    Q_SLOT void takeChange(const QString& space, const QString& key, const QDBusVariant& value);

    void askForAll();
    void ask(const SettingName& name, const QString& method);
    void takeReply(const SettingName& name, const QString& method, const QDBusMessage& reply);
    void update();

    MessageBus& m_bus;
    std::function<bool()> m_isPaletteDark;
    int m_unanswered = 0;
    PortalReadings m_readings;
    DesktopPreferences m_preferences;
};

} // namespace vantel
