#pragma once

#include "host/surface/LayerPicture.h"
#include "host/surface/LayerSheet.h"
#include "host/surface/LayerWindow.h"
#include "host/surface/Surface.h"

#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <chrono>

namespace vantel {

/// A desktop window as a layer surface: on the layer below all windows; above them while it has the keyboard.
/// It has it until the user presses Escape or clicks anywhere else, which does nothing more: compositors
/// disagree on what else takes the keyboard from a layer.
///
/// While it is dragged it stays where it is, because programs do not learn where the pointer is but in the
/// window that was pressed, and compositors disagree on what that means if the window moves. A picture of it
/// follows the pointer instead, and the window itself shows nothing until it is dropped.
class WaylandSurface final : public QObject, public Surface {
    Q_OBJECT

public:
    WaylandSurface(QWidget& window, const WaylandConnection& connection);

    void show(QScreen* screen, QPoint position) override;
    void move(QPoint position) override;
    void hide() override;
    QPoint position() const override { return m_position; }
    void lift() override;
    void settle(QScreen* screen) override;
    void openMenu(QMenu& menu, QPoint place) override;
    void setCardShape(const CardShape& shape) override;
    void takeFocus() override;
    void giveFocusBack() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum class Content { shown, blank };

    void stand();
    void update();
    LayerState state() const;
    void appear();
    void loseScreen(const QScreen* screen);
    void waitToStand();
    void carry();
    void setContent(Content content);

    QWidget& m_widget;
    const WaylandConnection& m_connection;
    LayerWindow m_window;
    QPointer<QScreen> m_screen;
    qreal m_ratio = 1; ///< of the screen when the window was brought there
    QPoint m_position;
    QRegion m_shape;
    layershell::Keyboard m_keyboard = layershell::Keyboard::none;
    std::vector<std::unique_ptr<LayerSheet>> m_sheets; ///< while it has the keyboard
    std::unique_ptr<LayerPicture> m_carried;
    Content m_content = Content::shown;
    QTimer m_retry;
    std::chrono::milliseconds m_pause;
};

} // namespace vantel
