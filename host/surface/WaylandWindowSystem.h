#pragma once

#include "host/surface/WaylandConnection.h"
#include "host/surface/WindowSystem.h"

#include <map>

namespace vantel {

/// Surfaces on Wayland, where compositors offer layers. Every compositor blends windows.
class WaylandWindowSystem final : public WindowSystem {
    Q_OBJECT

public:
    explicit WaylandWindowSystem(WaylandConnection connection);

    std::unique_ptr<Surface> makeSurface(QWidget& window) override;
    Blending blending() const override { return Blending::blended; }
    std::string serialNumber(const QScreen& screen) override;

private:
    WaylandConnection m_connection;
    std::optional<std::map<std::string, std::string>>
        m_outputs; ///< what is said of each; absent after one came
};

} // namespace vantel
