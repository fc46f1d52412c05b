#pragma once

#include "host/surface/WindowSystem.h"

namespace vantel {

/// Windows that are shown and moved, and nothing else.
class PlainWindowSystem final : public WindowSystem {
    Q_OBJECT

public:
    using WindowSystem::WindowSystem;

    std::unique_ptr<Surface> makeSurface(QWidget& window) override;
    Blending blending() const override { return m_blending; }
    void setBlending(Blending blending);

private:
    Blending m_blending = Blending::blended;
};

} // namespace vantel
