#include "host/surface/X11Surface.h"

#include <QScreen>
#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <array>
#include <chrono>
#include <string_view>
#include <utility>
#include <vector>

#include <xcb/shape.h>

namespace vantel {

using namespace std::string_view_literals;

namespace {

constexpr std::uint32_t allWorkspaces = 0xFFFFFFFF;
constexpr std::chrono::seconds arrivalTime(1);
constexpr std::uint32_t fromApplication = 1;
constexpr std::string_view stateProperty = "_NET_WM_STATE";
constexpr std::string_view below = "_NET_WM_STATE_BELOW";
constexpr std::string_view sticky = "_NET_WM_STATE_STICKY";
constexpr std::string_view skipTaskbar = "_NET_WM_STATE_SKIP_TASKBAR";
constexpr std::string_view skipPager = "_NET_WM_STATE_SKIP_PAGER";
constexpr std::string_view windowClass = "vantel-widgets\0org.vantel.Widgets\0"sv;

/// ICCCM's WM_HINTS: nine numbers, of which the first says which others count.
constexpr std::size_t hintCount = 9;
constexpr std::uint32_t inputCounts = 1;

std::vector<xcb_rectangle_t> rectanglesOf(const QRegion& region) {
    std::vector<xcb_rectangle_t> rectangles;
    for (const QRect& each : region)
        rectangles.push_back({static_cast<std::int16_t>(each.x()), static_cast<std::int16_t>(each.y()),
                              static_cast<std::uint16_t>(each.width()),
                              static_cast<std::uint16_t>(each.height())});
    return rectangles;
}

} // namespace

X11Surface::X11Surface(QWidget& window, X11WindowSystem& system)
    : WindowSurface(window)
    , m_system(system)
    , m_connection(system.connection()) {
    widget().setAttribute(Qt::WA_ShowWithoutActivating);
    widget().setAttribute(Qt::WA_TranslucentBackground);
}

xcb_window_t X11Surface::window() const {
    return static_cast<xcb_window_t>(widget().winId());
}

void X11Surface::show(QScreen* screen, QPoint position) {
    widget().hide();
    m_mode = windowMode(m_system.manager());
    chooseFlags();
    if (screen != nullptr)
        widget().setScreen(screen);
    widget().move(position);
    announce();
    applyShape();
    widget().show();
    if (std::exchange(m_wasShown, true) || m_mode == WindowMode::overrideRedirect)
        standBelow();
    m_connection.flush();
    QTimer::singleShot(arrivalTime, &widget(), [this] { mendIfMissed(); });
}

void X11Surface::mendIfMissed() {
    const bool isManaged = m_system.manager().presence == WindowManager::Presence::running &&
                           m_mode != WindowMode::overrideRedirect;
    if (!isManaged || !widget().isVisible())
        return;
    if (isLost() && m_triesLeft-- > 0)
        return show(widget().screen(), widget().pos());
    if (!m_isRaised && !standsBelow())
        standBelow();
    m_connection.flush();
}

void X11Surface::chooseFlags() {
    Qt::WindowFlags flags = Qt::Window | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint;
    flags |=
        m_mode == WindowMode::overrideRedirect ? Qt::X11BypassWindowManagerHint : Qt::WindowStaysOnBottomHint;
    if (widget().windowFlags() != flags)
        widget().setWindowFlags(flags);
}

void X11Surface::announce() const {
    m_connection.setText(window(), "WM_CLASS", windowClass);
    if (m_mode == WindowMode::dockBelow)
        m_connection.setAtoms(window(), "_NET_WM_WINDOW_TYPE", {"_NET_WM_WINDOW_TYPE_DOCK"});
    else
        m_connection.setAtoms(window(), "_NET_WM_WINDOW_TYPE", {"_NET_WM_WINDOW_TYPE_NORMAL"});
    m_connection.setNumbers(window(), "_NET_WM_DESKTOP", XCB_ATOM_CARDINAL, std::array{allWorkspaces});
    m_connection.setAtoms(window(), stateProperty, {below, sticky, skipTaskbar, skipPager});
    setKeyboard(Keyboard::refused);
}

bool X11Surface::isLost() const {
    return m_connection.numbers(window(), "WM_STATE").empty();
}

bool X11Surface::standsBelow() const {
    const auto states = m_connection.numbers(window(), stateProperty);
    return std::ranges::all_of(std::array{below, sticky, skipTaskbar, skipPager}, [&](auto state) {
        return std::ranges::find(states, m_connection.atom(state)) != states.end();
    });
}

void X11Surface::standBelow() const {
    if (m_mode == WindowMode::overrideRedirect)
        return lower();
    changeState(StateChange::add, below, sticky);
    changeState(StateChange::add, skipTaskbar, skipPager);
}

void X11Surface::lower() const {
    const std::uint32_t lowest = XCB_STACK_MODE_BELOW;
    xcb_configure_window(m_connection.xcb(), window(), XCB_CONFIG_WINDOW_STACK_MODE, &lowest);
}

void X11Surface::changeState(StateChange change, std::string_view first, std::string_view second) const {
    const std::array values{static_cast<std::uint32_t>(change), m_connection.atom(first),
                            second.empty() ? xcb_atom_t{XCB_ATOM_NONE} : m_connection.atom(second),
                            fromApplication, 0U};
    m_connection.ask(window(), stateProperty, values);
}

void X11Surface::setKeyboard(Keyboard keyboard) const {
    auto hints = m_connection.numbers(window(), "WM_HINTS");
    hints.resize(hintCount);
    hints[0] |= inputCounts;
    hints[1] = keyboard == Keyboard::accepted ? 1 : 0;
    m_connection.setNumbers(window(), "WM_HINTS", XCB_ATOM_WM_HINTS, hints);
}

void X11Surface::setCardShape(const CardShape& shape) {
    m_shape = shape;
    if (widget().isVisible())
        applyShape();
}

/// Not by the toolkit's masks, which know logical pixels only: corners would be steps on a fine screen.
void X11Surface::applyShape() const {
    const auto rectangles = rectanglesOf(insideOf(m_shape, widget().devicePixelRatioF()));
    const auto shape = [&](xcb_shape_sk_t kind) {
        xcb_shape_rectangles(m_connection.xcb(), XCB_SHAPE_SO_SET, kind, XCB_CLIP_ORDERING_UNSORTED, window(),
                             0, 0, static_cast<std::uint32_t>(rectangles.size()), rectangles.data());
    };
    shape(XCB_SHAPE_SK_INPUT);
    if (m_system.blending() == Blending::none)
        shape(XCB_SHAPE_SK_BOUNDING);
    else
        xcb_shape_mask(m_connection.xcb(), XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING, window(), 0, 0,
                       XCB_PIXMAP_NONE);
}

void X11Surface::takeFocus() {
    m_isRaised = true;
    m_system.rememberFocus();
    setKeyboard(Keyboard::accepted);
    changeState(StateChange::remove, below);
    changeState(StateChange::add, "_NET_WM_STATE_ABOVE");
    widget().raise();
    activate();
    m_connection.flush();
}

void X11Surface::activate() const {
    // The time of the last event that came here may be older than the last change of focus, and a request
    // with such a time is refused. The user asked for this by other ways, so it is as urgent as a pager's.
    if (m_mode == WindowMode::overrideRedirect)
        xcb_set_input_focus(m_connection.xcb(), XCB_INPUT_FOCUS_POINTER_ROOT, window(), XCB_CURRENT_TIME);
    else
        m_connection.activate(window());
}

bool X11Surface::hasKeyboard() const {
    return m_connection.focusedWindow() == window();
}

void X11Surface::giveFocusBack() {
    m_isRaised = false;
    setKeyboard(Keyboard::refused);
    changeState(StateChange::remove, "_NET_WM_STATE_ABOVE");
    standBelow();
    if (hasKeyboard())
        m_system.restoreFocus();
    m_connection.flush();
}

} // namespace vantel
