#include "host/surface/WindowSystem.h"

#include "host/surface/PlainWindowSystem.h"
#include "host/surface/WaylandWindowSystem.h"
#include "host/surface/X11WindowSystem.h"

#include <QScreen>

namespace vantel {

std::string WindowSystem::serialNumber(const QScreen& screen) {
    return screen.serialNumber().toStdString();
}

QRect WindowSystem::availableGeometry(const QScreen& screen) {
    return screen.availableGeometry();
}

std::unique_ptr<WindowSystem> makeWindowSystem() {
    if (auto connection = X11Connection::ofApplication())
        return std::make_unique<X11WindowSystem>(std::move(*connection));
    if (auto connection = WaylandConnection::ofApplication())
        return std::make_unique<WaylandWindowSystem>(*connection);
    return std::make_unique<PlainWindowSystem>();
}

} // namespace vantel
