#include "host/desk/Screens.h"

#include "host/surface/WindowSystem.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTimer>
#include <algorithm>
#include <utility>

namespace vantel {

SystemScreens::SystemScreens(WindowSystem& windows, QObject* parent)
    : Screens(parent)
    , m_windows(windows) {
    for (QScreen* screen : QGuiApplication::screens())
        watch(screen);
    connect(qGuiApp, &QGuiApplication::screenAdded, this, [this](QScreen* screen) {
        watch(screen);
        announce();
    });
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, &SystemScreens::announce);
    connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, &SystemScreens::announce);
}

MonitorIdentity SystemScreens::identityOf(const QScreen& screen) const {
    return {.manufacturer = screen.manufacturer().toStdString(),
            .model = screen.model().toStdString(),
            .serial = m_windows.serialNumber(screen),
            .name = screen.name().toStdString()};
}

bool SystemScreens::isStandIn(const QScreen& screen) const {
    return screen.geometry().isEmpty() ||
           (identityOf(screen) == MonitorIdentity() && screen.physicalSize().isEmpty());
}

std::vector<Monitor> SystemScreens::monitors() const {
    std::vector<Monitor> monitors;
    for (QScreen* screen : QGuiApplication::screens())
        if (!isStandIn(*screen))
            monitors.push_back(
                {identityOf(*screen), screen->geometry(), m_windows.availableGeometry(*screen), screen});
    std::ranges::stable_partition(
        monitors, [](const Monitor& each) { return each.screen == QGuiApplication::primaryScreen(); });
    return monitors;
}

void SystemScreens::watch(QScreen* screen) const {
    connect(screen, &QScreen::geometryChanged, this, &SystemScreens::announce);
    connect(screen, &QScreen::availableGeometryChanged, this, &SystemScreens::announce);
}

void SystemScreens::announce() {
    if (std::exchange(m_isAnnouncing, true))
        return;
    QTimer::singleShot(0, this, [this] {
        m_isAnnouncing = false;
        Q_EMIT changed();
    });
}

} // namespace vantel
