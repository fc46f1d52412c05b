#include "host/doctor/LookAround.h"
#include "host/surface/X11Connection.h"

namespace vantel {

namespace {

SessionOnX11 session(const X11Connection& connection) {
    const bool isBlended = connection.selectionOwner(connection.compositorSelection()) != XCB_NONE;
    return {.manager = runningWindowManager(connection),
            .blending = isBlended ? Blending::blended : Blending::none};
}

} // namespace

std::optional<SessionOnX11> lookAtX11() {
    xcb_connection_t* connection = ::xcb_connect(nullptr, nullptr);
    std::optional<SessionOnX11> found;
    if (::xcb_connection_has_error(connection) == 0)
        found = session(X11Connection::over(connection));
    ::xcb_disconnect(connection);
    return found;
}

} // namespace vantel
