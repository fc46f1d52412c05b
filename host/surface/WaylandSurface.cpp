#include "host/surface/WaylandSurface.h"

#include "host/surface/LayerMenu.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPaintEvent>
#include <QPainter>
#include <QScreen>
#include <algorithm>

namespace vantel {

namespace {

using namespace std::chrono_literals;

/// A compositor may take surfaces away for good reasons, such as an output that is switched off, but one that
/// does so each time is not asked ever faster.
constexpr std::chrono::milliseconds firstPause = 250ms;
constexpr std::chrono::milliseconds longestPause = 1min;

QScreen* screenAt(QPoint point) {
    const auto screens = QGuiApplication::screens();
    const auto found =
        std::ranges::find_if(screens, [&](const QScreen* each) { return each->geometry().contains(point); });
    return found != screens.end() ? *found : nullptr;
}

/// Since Qt 6.5 a window is not always handed out clear where it is drawn anew: what was there before would
/// shine through the shadow.
void clear(QWidget& window, const QRegion& region) {
    QPainter painter(&window);
    painter.setCompositionMode(QPainter::CompositionMode_Clear);
    painter.fillRect(region.boundingRect(), Qt::transparent);
}

} // namespace

WaylandSurface::WaylandSurface(QWidget& window, const WaylandConnection& connection)
    : m_widget(window)
    , m_connection(connection)
    , m_window(window, connection)
    , m_pause(firstPause) {
    window.installEventFilter(this);
    connect(&m_window, &LayerWindow::ready, this, &WaylandSurface::appear);
    connect(&m_window, &LayerWindow::closed, this, &WaylandSurface::waitToStand);
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, &WaylandSurface::loseScreen);
    m_retry.setSingleShot(true);
    connect(&m_retry, &QTimer::timeout, this, &WaylandSurface::stand);
}

void WaylandSurface::show(QScreen* screen, QPoint position) {
    m_carried.reset();
    setContent(Content::shown);
    m_screen = screen;
    m_position = position;
    m_pause = firstPause;
    stand();
}

void WaylandSurface::stand() {
    m_retry.stop();
    if (m_screen.isNull())
        return m_window.takeDown();
    m_ratio = m_screen->devicePixelRatio();
    m_window.stand(*m_screen, state());
}

void WaylandSurface::appear() {
    m_widget.move(m_position);
    m_widget.show();
}

LayerState WaylandSurface::state() const {
    const bool hasKeyboard = m_keyboard != layershell::Keyboard::none;
    return {.layer = hasKeyboard ? layershell::Layer::overlay : layershell::Layer::bottom,
            .keyboard = m_keyboard,
            .place = m_position - m_screen->geometry().topLeft(),
            .size = m_widget.size(),
            .input = m_shape};
}

void WaylandSurface::update() {
    if (!m_screen.isNull() && m_carried == nullptr)
        m_window.change(state());
}

/// Nothing may be left of a surface when its output goes, and the toolkit would bring it to another one.
void WaylandSurface::loseScreen(const QScreen* screen) {
    m_carried.reset();
    setContent(Content::shown);
    giveFocusBack();
    if (screen != m_screen)
        return;
    m_screen.clear();
    stand();
}

void WaylandSurface::waitToStand() {
    m_retry.start(m_pause);
    m_pause = std::min(2 * m_pause, longestPause);
}

void WaylandSurface::move(QPoint position) {
    m_position = position;
    if (m_carried != nullptr)
        return carry();
    if (!m_screen.isNull() && m_screen->devicePixelRatio() != m_ratio)
        return stand();
    m_widget.move(position);
    update();
}

void WaylandSurface::hide() {
    m_retry.stop();
    m_carried.reset();
    giveFocusBack();
    m_window.takeDown();
}

void WaylandSurface::lift() {
    m_carried = std::make_unique<LayerPicture>(m_widget.grab(), m_connection);
    connect(m_carried.get(), &LayerPicture::shown, this, [this] { setContent(Content::blank); });
    carry();
}

void WaylandSurface::carry() {
    if (QScreen* screen = screenAt(m_position + m_widget.rect().center()))
        m_carried->show(*screen, m_position);
}

void WaylandSurface::settle(QScreen* screen) {
    if (screen != m_screen)
        return show(screen, m_position);
    const auto carried = std::exchange(m_carried, nullptr);
    move(m_position);
    setContent(Content::shown);
    m_widget.repaint();
}

void WaylandSurface::setContent(Content content) {
    if (std::exchange(m_content, content) == content)
        return;
    for (auto* child : m_widget.findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
        if (!child->isWindow())
            child->setVisible(content == Content::shown);
    m_widget.update();
}

bool WaylandSurface::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize)
        update();
    if (event->type() == QEvent::Paint) {
        clear(m_widget, static_cast<QPaintEvent*>(event)->region());
        return m_content == Content::blank;
    }
    return QObject::eventFilter(watched, event);
}

void WaylandSurface::openMenu(QMenu& menu, QPoint place) {
    if (!m_screen.isNull())
        new LayerMenu(menu, m_connection, *m_screen, m_position + place);
}

void WaylandSurface::setCardShape(const CardShape& shape) {
    m_shape = insideOf(shape, 1);
    update();
}

void WaylandSurface::takeFocus() {
    m_keyboard = layershell::Keyboard::exclusive;
    m_sheets = LayerSheet::overAllScreens(m_connection);
    for (const auto& sheet : m_sheets)
        connect(sheet.get(), &LayerSheet::pressed, this, &WaylandSurface::giveFocusBack,
                Qt::QueuedConnection);
    update();
}

void WaylandSurface::giveFocusBack() {
    m_keyboard = layershell::Keyboard::none;
    m_sheets.clear();
    update();
}

} // namespace vantel
