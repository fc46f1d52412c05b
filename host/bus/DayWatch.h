#pragma once

#include "host/schedule/FileWatch.h"

#include <QDBusConnection>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

namespace vantel {

/// Tells of what makes the plan of the day wrong from outside, apart from the clock itself: the machine has
/// slept, or the user is in another zone. Each part may be missing: without the system bus, the file of the
/// zone is still watched. A signal may come without cause; one change may cause several.
class DayWatch final : public QObject {
    Q_OBJECT

public:
    /// Connecting to the system bus takes it a millisecond: make this after the first frame.
    explicit DayWatch(QDBusConnection systemBus = QDBusConnection::systemBus(),
                      const std::string& zoneFile = "/etc/localtime", QObject* parent = nullptr);

Q_SIGNALS:
    void resumed();
    void zoneChanged();

private:
    Q_SLOT void handleSleep(bool isGoingToSleep);
    Q_SLOT void handleProperties(const QString& interface, const QVariantMap& changed,
                                 const QStringList& invalidated);

    FileWatch m_zoneFile;
};

} // namespace vantel
