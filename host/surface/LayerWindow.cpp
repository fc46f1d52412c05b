#include "host/surface/LayerWindow.h"

#include <QPlatformSurfaceEvent>
#include <QScreen>
#include <QWidget>
#include <QWindow>

namespace vantel {

namespace {

/// A window that bypasses the window manager gets no role from the toolkit, as `WaylandEnvironment` asks.
constexpr Qt::WindowFlags withoutRole = Qt::FramelessWindowHint | Qt::BypassWindowManagerHint;

bool endsSurface(const QEvent& event) {
    if (event.type() != QEvent::PlatformSurface)
        return event.type() == QEvent::Close;
    return static_cast<const QPlatformSurfaceEvent&>(event).surfaceEventType() ==
           QPlatformSurfaceEvent::SurfaceAboutToBeDestroyed;
}

} // namespace

LayerWindow::LayerWindow(QWidget& widget, const WaylandConnection& connection, QObject* parent)
    : QObject(parent)
    , m_widget(widget)
    , m_connection(connection) {
    widget.setWindowFlags(widget.windowFlags() | withoutRole);
    widget.installEventFilter(this);
}

LayerWindow::~LayerWindow() = default;

void LayerWindow::stand(QScreen& screen, const LayerState& state) {
    takeDown();
    wl_output* output = WaylandConnection::outputOf(screen);
    if (output == nullptr)
        return;
    create(screen);
    const auto close = [this] {
        takeDown();
        Q_EMIT closed();
    };
    m_role = std::make_unique<LayerRole>(m_connection, *m_widget.windowHandle(), output, state,
                                         LayerRole::Heard{[this] { Q_EMIT ready(); }, close});
}

void LayerWindow::create(QScreen& screen) {
    m_widget.winId(); // makes the window, if there is none yet
    QWindow& window = *m_widget.windowHandle();
    window.installEventFilter(this);
    m_widget.setScreen(&screen);
    window.create();
}

void LayerWindow::change(const LayerState& state) {
    if (m_role != nullptr)
        m_role->change(state);
}

void LayerWindow::takeDown() {
    m_role.reset();
    m_widget.hide();
    if (QWindow* window = m_widget.windowHandle())
        window->destroy();
}

bool LayerWindow::eventFilter(QObject* watched, QEvent* event) {
    if (endsSurface(*event))
        m_role.reset();
    return QObject::eventFilter(watched, event);
}

} // namespace vantel
