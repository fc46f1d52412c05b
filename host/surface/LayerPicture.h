#pragma once

#include "host/surface/LayerWindow.h"

#include <QPixmap>
#include <QPointer>
#include <QScreen>
#include <QWidget>
#include <functional>

namespace vantel {

/// A picture above all windows that lets every click through: a card while it is dragged.
class LayerPicture final : public QWidget {
    Q_OBJECT

public:
    LayerPicture(QPixmap picture, const WaylandConnection& connection);

    /// Shows the picture there, in logical pixels of the whole desktop, or brings it there.
    void show(QScreen& screen, QPoint position);

Q_SIGNALS:
    void shown();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QPixmap m_picture;
    LayerWindow m_window;
    QPointer<QScreen> m_screen;
};

} // namespace vantel
