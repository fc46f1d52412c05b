#include "host/surface/X11WindowSystem.h"

#include "host/surface/X11Surface.h"

#include <QCoreApplication>
#include <array>
#include <utility>

#include <xcb/xfixes.h>

namespace vantel {

namespace {

constexpr std::uint8_t sentByOthers = 0x80;

/// What the application's own platform asks for too: the masks of one client and window replace each other.
constexpr std::uint32_t ownerChanges = XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                       XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                       XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE;

constexpr std::string_view checkProperty = "_NET_SUPPORTING_WM_CHECK";

/// What every start needs, here and for a window.
constexpr auto usualAtoms = std::to_array<std::string_view>(
    {checkProperty, "_NET_SUPPORTED", "_NET_WM_NAME", "WM_CLASS", "WM_HINTS", "_NET_WM_WINDOW_TYPE",
     "_NET_WM_DESKTOP", "_NET_WM_WINDOW_TYPE_DOCK", "_NET_WM_WINDOW_TYPE_NORMAL", "_NET_WM_STATE",
     "_NET_WM_STATE_BELOW", "_NET_WM_STATE_STICKY", "_NET_WM_STATE_SKIP_PAGER", "_NET_WM_STATE_SKIP_TASKBAR",
     "WM_STATE"});

} // namespace

X11WindowSystem::X11WindowSystem(X11Connection connection)
    : m_connection(std::move(connection)) {
    const std::string selection = m_connection.compositorSelection();
    std::vector<std::string_view> names(usualAtoms.begin(), usualAtoms.end());
    names.push_back(selection);
    m_connection.learnAtoms(names);
    watchCompositor();
    lookForCompositor();
    lookForManager();
    QCoreApplication::instance()->installNativeEventFilter(this);
}

X11WindowSystem::~X11WindowSystem() = default;

std::unique_ptr<Surface> X11WindowSystem::makeSurface(QWidget& window) {
    m_cards.insert(&window);
    connect(&window, &QObject::destroyed, this, [this, card = &window] { m_cards.erase(card); });
    return std::make_unique<X11Surface>(window, *this);
}

void X11WindowSystem::rememberFocus() {
    const auto active = m_connection.numbers(m_connection.root(), "_NET_ACTIVE_WINDOW");
    if (!active.empty() && QWidget::find(active.front()) == nullptr)
        m_focusBefore = active.front();
}

void X11WindowSystem::restoreFocus() {
    const xcb_window_t before = std::exchange(m_focusBefore, xcb_window_t{XCB_NONE});
    const bool isThere = before != XCB_NONE && !m_connection.numbers(before, "WM_STATE").empty();
    if (isThere)
        m_connection.activate(before);
    else
        m_connection.releaseKeyboard();
}

void X11WindowSystem::watchCompositor() {
    const auto* extension = xcb_get_extension_data(m_connection.xcb(), &xcb_xfixes_id);
    if (extension == nullptr || extension->present == 0)
        return;
    m_selectionEvent = static_cast<std::uint8_t>(extension->first_event + XCB_XFIXES_SELECTION_NOTIFY);
    xcb_xfixes_select_selection_input(m_connection.xcb(), m_connection.root(),
                                      m_connection.atom(m_connection.compositorSelection()), ownerChanges);
}

bool X11WindowSystem::nativeEventFilter(const QByteArray& type, void* message, qintptr*) {
    if (type != "xcb_generic_event_t")
        return false;
    const auto* event = static_cast<const xcb_generic_event_t*>(message);
    const auto kind = static_cast<std::uint8_t>(event->response_type & ~sentByOthers);
    if (m_selectionEvent != 0 && kind == m_selectionEvent)
        lookForCompositor();
    if (kind != XCB_PROPERTY_NOTIFY)
        return false;
    const auto* change = reinterpret_cast<const xcb_property_notify_event_t*>(event);
    if (change->window == m_connection.root() && change->atom == m_connection.atom(checkProperty))
        lookForManager();
    return isStateOfCard(*change);
}

/// The toolkit would ask the server for all states of a window at each change. Nothing here depends on what
/// it then knew of a card: whether it is iconified, maximized or fills the screen.
bool X11WindowSystem::isStateOfCard(const xcb_property_notify_event_t& change) const {
    const bool isState =
        change.atom == m_connection.atom("_NET_WM_STATE") || change.atom == m_connection.atom("WM_STATE");
    return isState && m_cards.contains(QWidget::find(change.window));
}

void X11WindowSystem::lookForCompositor() {
    const bool isOwned = m_connection.selectionOwner(m_connection.compositorSelection()) != XCB_NONE;
    const Blending found = isOwned ? Blending::blended : Blending::none;
    if (std::exchange(m_blending, found) != found)
        Q_EMIT blendingChanged();
}

void X11WindowSystem::lookForManager() {
    WindowManager found = runningWindowManager(m_connection);
    if (found == m_manager)
        return;
    m_manager = std::move(found);
    Q_EMIT managerChanged();
}

} // namespace vantel
