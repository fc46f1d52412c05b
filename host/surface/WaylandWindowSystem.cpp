#include "host/surface/WaylandWindowSystem.h"

#include "host/surface/WaylandSurface.h"

#include <QGuiApplication>
#include <QScreen>

namespace vantel {

namespace {

constexpr qint64 longestUse = 2000; // milliseconds

} // namespace

WaylandWindowSystem::WaylandWindowSystem(WaylandConnection connection)
    : m_connection(connection) {
    connect(qGuiApp, &QGuiApplication::screenAdded, this, [this] { m_sinceProbe.invalidate(); });
}

std::unique_ptr<Surface> WaylandWindowSystem::makeSurface(QWidget& window) {
    return std::make_unique<WaylandSurface>(window, m_connection);
}

/// Nobody tells when a panel comes, so what is known is not used for long; but a drag asks often.
const ProbedOutput& WaylandWindowSystem::output(const QScreen& screen) {
    if (!m_sinceProbe.isValid() || m_sinceProbe.hasExpired(longestUse)) {
        m_outputs = probeOutputs();
        m_sinceProbe.start();
    }
    return m_outputs[screen.name().toStdString()];
}

std::string WaylandWindowSystem::serialNumber(const QScreen& screen) {
    return outputSerial(output(screen).description, screen.manufacturer().toStdString(),
                        screen.model().toStdString(), screen.name().toStdString());
}

QRect WaylandWindowSystem::availableGeometry(const QScreen& screen) {
    const auto usable = output(screen).usable;
    return usable ? withoutPanels(screen.geometry(), *usable) : screen.geometry();
}

} // namespace vantel
