#include "host/surface/LayerPicture.h"

#include <QPainter>
#include <utility>

namespace vantel {

LayerPicture::LayerPicture(QPixmap picture, const WaylandConnection& connection)
    : m_picture(std::move(picture))
    , m_window(*this, connection) {
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_QuitOnClose, false);
    setFixedSize(m_picture.deviceIndependentSize().toSize());
    connect(&m_window, &LayerWindow::ready, this, [this] {
        QWidget::show();
        repaint();
        Q_EMIT shown();
    });
}

void LayerPicture::show(QScreen& screen, QPoint position) {
    const LayerState state{
        .layer = layershell::Layer::overlay, .place = position - screen.geometry().topLeft(), .size = size()};
    if (m_screen == &screen)
        return m_window.change(state);
    m_screen = &screen;
    m_window.stand(screen, state);
}

void LayerPicture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source); // as the window may not be clear
    painter.drawPixmap(0, 0, m_picture);
}

} // namespace vantel
