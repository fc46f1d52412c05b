#include "host/surface/LayerMenu.h"

#include "host/surface/WholePixels.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <utility>

namespace vantel {

namespace {

int beside(int place, int length, int begin, int end) {
    const bool fits = place + length <= end;
    return std::clamp(fits ? place : place - length, begin, std::max(begin, end - length));
}

} // namespace

QPoint menuPosition(QPoint place, QSize menu, const QRect& screen) {
    return {beside(place.x(), menu.width(), screen.x(), screen.x() + screen.width()),
            beside(place.y(), menu.height(), screen.y(), screen.y() + screen.height())};
}

LayerMenu::LayerMenu(QMenu& menu, const WaylandConnection& connection, QScreen& screen, QPoint place)
    : QObject(&menu)
    , m_menu(menu)
    , m_window(menu, connection) {
    menu.ensurePolished();
    const QSize size = inWholePixels(menu.sizeHint());
    menu.setMinimumSize(size);
    m_place = menuPosition(place, size, screen.geometry());
    connect(&m_window, &LayerWindow::ready, this, &LayerMenu::open);
    connect(&m_window, &LayerWindow::closed, &menu, &QWidget::close);
    // A sheet may be about to be shown when the menu closes.
    connect(&menu, &QMenu::aboutToHide, this, &LayerMenu::endSheets, Qt::QueuedConnection);
    connect(qGuiApp, &QGuiApplication::screenRemoved, &menu, &QWidget::close);
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, &LayerMenu::heedFocus);
    // They come first, so that no click passes beside a menu that is seen.
    m_sheets = LayerSheet::overAllScreens(connection);
    m_window.stand(screen, {.layer = layershell::Layer::overlay,
                            .keyboard = layershell::Keyboard::exclusive,
                            .place = m_place - screen.geometry().topLeft(),
                            .size = size,
                            .input = QRect({}, size)});
}

LayerMenu::~LayerMenu() = default;

void LayerMenu::open() {
    m_menu.popup(m_place);
}

void LayerMenu::endSheets() {
    m_sheets.clear();
}

void LayerMenu::heedFocus(const QWindow* focused) {
    const bool isHere = focused == m_menu.windowHandle();
    if (std::exchange(m_hasKeyboard, isHere) && focused == nullptr)
        m_menu.close();
}

} // namespace vantel
