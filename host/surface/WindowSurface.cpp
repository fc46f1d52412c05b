#include "host/surface/WindowSurface.h"

#include <QMenu>
#include <QWidget>

namespace vantel {

void WindowSurface::move(QPoint position) {
    m_window.move(position);
}

void WindowSurface::hide() {
    m_window.hide();
}

QPoint WindowSurface::position() const {
    return m_window.pos();
}

void WindowSurface::openMenu(QMenu& menu, QPoint place) {
    menu.popup(m_window.mapToGlobal(place));
}

} // namespace vantel
