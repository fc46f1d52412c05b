#pragma once

#include "host/surface/LayerSheet.h"

#include <QMenu>
#include <vector>

namespace vantel {

/// A menu above all windows, opened at a place of the desktop. It has the keyboard while it is open. Under it
/// lies an invisible sheet on each screen, so that a click anywhere beside the menu closes it, as it does on
/// desktops that let a menu grab the mouse. It closes too when it loses the keyboard.
///
/// A child of the menu.
class LayerMenu final : public QObject {
    Q_OBJECT

public:
    LayerMenu(QMenu& menu, const WaylandConnection& connection, QScreen& screen, QPoint place);
    ~LayerMenu() override;

private:
    void open();
    void endSheets();
    void heedFocus(const QWindow* focused);

    QMenu& m_menu;
    QPoint m_place;
    LayerWindow m_window;
    std::vector<std::unique_ptr<LayerSheet>> m_sheets;
    bool m_hasKeyboard = false;
};

/// Where a menu of a size goes that is opened at a place: beside the place, and wholly on the screen.
QPoint menuPosition(QPoint place, QSize menu, const QRect& screen);

} // namespace vantel
