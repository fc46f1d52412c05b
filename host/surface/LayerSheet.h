#pragma once

#include "host/surface/LayerWindow.h"

#include <QWidget>
#include <memory>
#include <vector>

namespace vantel {

/// An invisible sheet over a screen, above all windows but below menus and the card that has the keyboard: so
/// that a click anywhere else is heard, as on desktops that let a window grab the mouse.
class LayerSheet final : public QWidget {
    Q_OBJECT

public:
    LayerSheet(QScreen& screen, const WaylandConnection& connection);

    /// One over each screen.
    static std::vector<std::unique_ptr<LayerSheet>> overAllScreens(const WaylandConnection& connection);

Q_SIGNALS:
    /// Not while a menu is open, to which the application sends every click.
    void pressed();

protected:
    void mousePressEvent(QMouseEvent* event) override;

private:
    LayerWindow m_window;
};

} // namespace vantel
