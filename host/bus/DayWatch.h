#pragma once

#include "host/bus/MessageBus.h"
#include "host/schedule/FileWatch.h"

#include <QObject>
#include <QStringList>
#include <QVariantMap>

namespace vantel {

/// Tells of what makes the plan of the day wrong from outside, apart from the clock itself: the machine has
/// slept, or the user is in another zone. The file of the zone is watched from the beginning; the system bus
/// may come later, or never. A signal may come without cause; one change may cause several.
class DayWatch final : public QObject {
    Q_OBJECT

public:
    explicit DayWatch(const std::string& zoneFile = "/etc/localtime", QObject* parent = nullptr);

    /// Hears what is said there, now and whenever the bus comes back. The bus lives longer than this.
    void listenTo(const MessageBus& systemBus);

Q_SIGNALS:
    void resumed();
    void zoneChanged();

private:
    void subscribe(QDBusConnection systemBus);
    Q_SLOT void handleSleep(bool isGoingToSleep);
    Q_SLOT void handleProperties(const QString& interface, const QVariantMap& changed,
                                 const QStringList& invalidated);

    FileWatch m_zoneFile;
    bool m_wasSubscribed = false;
};

} // namespace vantel
