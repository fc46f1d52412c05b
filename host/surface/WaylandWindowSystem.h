#pragma once

#include "host/surface/OutputProbe.h"
#include "host/surface/WaylandConnection.h"
#include "host/surface/WindowSystem.h"

#include <QElapsedTimer>

namespace vantel {

/// Surfaces on Wayland, where compositors offer layers. Every compositor blends windows.
class WaylandWindowSystem final : public WindowSystem {
    Q_OBJECT

public:
    explicit WaylandWindowSystem(WaylandConnection connection);

    std::unique_ptr<Surface> makeSurface(QWidget& window) override;
    Blending blending() const override { return Blending::blended; }
    std::string serialNumber(const QScreen& screen) override;
    QRect availableGeometry(const QScreen& screen) override;

private:
    const ProbedOutput& output(const QScreen& screen);

    WaylandConnection m_connection;
    std::map<std::string, ProbedOutput> m_outputs;
    QElapsedTimer m_sinceProbe; ///< invalid when an output came
};

} // namespace vantel
