#include "host/surface/WindowSystem.h"

#include "host/surface/PlainWindowSystem.h"
#include "host/surface/X11WindowSystem.h"

namespace vantel {

std::unique_ptr<WindowSystem> makeWindowSystem() {
    if (auto connection = X11Connection::ofApplication())
        return std::make_unique<X11WindowSystem>(std::move(*connection));
    return std::make_unique<PlainWindowSystem>();
}

} // namespace vantel
