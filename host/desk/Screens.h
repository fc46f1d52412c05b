#pragma once

#include "host/desk/Monitor.h"

#include <QObject>

namespace vantel {

class WindowSystem;

/// The monitors that are connected now.
class Screens : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// The primary one first. Without the stand-in that the toolkit keeps while no monitor is connected.
    virtual std::vector<Monitor> monitors() const = 0;

Q_SIGNALS:
    /// Said once, after a burst of changes.
    void changed();
};

/// The application's screens.
class SystemScreens final : public Screens {
    Q_OBJECT

public:
    /// The window system outlives it.
    explicit SystemScreens(WindowSystem& windows, QObject* parent = nullptr);

    std::vector<Monitor> monitors() const override;

private:
    MonitorIdentity identityOf(const QScreen& screen) const;
    bool isStandIn(const QScreen& screen) const;
    void watch(QScreen* screen) const;
    void announce();

    WindowSystem& m_windows;
    bool m_isAnnouncing = false;
};

} // namespace vantel
