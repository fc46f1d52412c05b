#include "host/surface/LayerRole.h"

#include <utility>

namespace vantel {

namespace {

constexpr const char* surfaceName = "vantel-widgets";
constexpr std::int32_t disregardsPanels = -1;

} // namespace

LayerRole::LayerRole(const WaylandConnection& connection, QWindow& window, wl_output* output,
                     LayerState state, Heard heard)
    : m_connection(connection)
    , m_surface(WaylandConnection::surfaceOf(window))
    , m_state(std::move(state))
    , m_heard(std::move(heard))
    , m_role(layershell::getLayerSurface(connection.layerShell(), m_surface, output, m_state.layer,
                                         surfaceName)) {
    layershell::listen(m_role, listener, this);
    layershell::setAnchor(m_role, layershell::topEdge | layershell::leftEdge);
    layershell::setExclusiveZone(m_role, disregardsPanels);
    send(m_state, {.layer = m_state.layer});
    commit();
}

LayerRole::~LayerRole() {
    layershell::destroySurface(m_role);
    m_connection.flush();
}

void LayerRole::change(const LayerState& state) {
    if (state == m_state)
        return;
    send(state, m_state);
    m_state = state;
    commit();
}

void LayerRole::send(const LayerState& state, const LayerState& before) {
    if (state.layer != before.layer)
        layershell::setLayer(m_role, state.layer);
    if (state.keyboard != before.keyboard)
        layershell::setKeyboard(m_role, state.keyboard);
    if (state.place != before.place)
        layershell::setMargin(m_role, state.place.y(), 0, 0, state.place.x());
    if (state.size != before.size)
        layershell::setSize(m_role, static_cast<std::uint32_t>(state.size.width()),
                            static_cast<std::uint32_t>(state.size.height()));
    // An empty region is not the lack of one, with which a surface begins.
    if (state.input != before.input || !m_isConfigured)
        m_connection.setInputRegion(m_surface, state.input);
}

void LayerRole::commit() const {
    WaylandConnection::commit(m_surface);
    m_connection.flush();
}

void LayerRole::takeConfigure(void* role, wl_proxy* surface, std::uint32_t serial, std::uint32_t,
                              std::uint32_t) {
    layershell::acknowledge(surface, serial);
    auto& self = *static_cast<LayerRole*>(role);
    if (std::exchange(self.m_isConfigured, true))
        return self.commit();
    self.m_connection.forgetWholeScale(self.m_surface);
    // What is called may end this role, and with it the function itself.
    const auto configured = self.m_heard.configured;
    configured();
}

void LayerRole::takeClosed(void* role, wl_proxy*) {
    const auto closed = static_cast<LayerRole*>(role)->m_heard.closed;
    closed();
}

} // namespace vantel
