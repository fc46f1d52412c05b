#include "host/surface/LayerSheet.h"

#include <QGuiApplication>
#include <QScreen>

namespace vantel {

/// An ordinary window would close a menu when it is shown, but a tool does not.
LayerSheet::LayerSheet(QScreen& screen, const WaylandConnection& connection)
    : QWidget(nullptr, Qt::Tool)
    , m_window(*this, connection) {
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_QuitOnClose, false);
    setGeometry(screen.geometry());
    connect(&m_window, &LayerWindow::ready, this, &QWidget::show);
    const QSize size = screen.geometry().size();
    m_window.stand(screen, {.layer = layershell::Layer::top, .size = size, .input = QRect({}, size)});
}

std::vector<std::unique_ptr<LayerSheet>> LayerSheet::overAllScreens(const WaylandConnection& connection) {
    std::vector<std::unique_ptr<LayerSheet>> sheets;
    for (QScreen* screen : QGuiApplication::screens())
        sheets.push_back(std::make_unique<LayerSheet>(*screen, connection));
    return sheets;
}

void LayerSheet::mousePressEvent(QMouseEvent*) {
    Q_EMIT pressed();
}

} // namespace vantel
