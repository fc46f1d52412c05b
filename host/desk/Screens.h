#pragma once

#include "host/desk/Monitor.h"

#include <QObject>

namespace vantel {

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
    explicit SystemScreens(QObject* parent = nullptr);

    std::vector<Monitor> monitors() const override;

private:
    void watch(QScreen* screen) const;
    void announce();

    bool m_isAnnouncing = false;
};

} // namespace vantel
