#include "host/surface/WaylandWindowSystem.h"

#include "host/surface/OutputDescriptions.h"
#include "host/surface/WaylandSurface.h"

#include <QGuiApplication>
#include <QScreen>

namespace vantel {

WaylandWindowSystem::WaylandWindowSystem(WaylandConnection connection)
    : m_connection(connection) {
    connect(qGuiApp, &QGuiApplication::screenAdded, this, [this] { m_outputs.reset(); });
}

std::unique_ptr<Surface> WaylandWindowSystem::makeSurface(QWidget& window) {
    return std::make_unique<WaylandSurface>(window, m_connection);
}

std::string WaylandWindowSystem::serialNumber(const QScreen& screen) {
    if (!m_outputs)
        m_outputs = describeOutputs();
    const std::string name = screen.name().toStdString();
    return outputSerial((*m_outputs)[name], screen.manufacturer().toStdString(), screen.model().toStdString(),
                        name);
}

} // namespace vantel
