#include "host/surface/X11Connection.h"

#include <QGuiApplication>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>

namespace vantel {

namespace {

constexpr std::uint32_t longestProperty = 1024; ///< in units of four bytes

struct Free {
    // NOLINTNEXTLINE(cppcoreguidelines-no-malloc): the library leaves it so to whoever asked.
    void operator()(void* reply) const { std::free(reply); }
};

template <typename Reply>
using Owned = std::unique_ptr<Reply, Free>;

template <typename Reply>
Owned<Reply> owned(Reply* reply) {
    return Owned<Reply>(reply);
}

int defaultScreen() {
    char* host = nullptr;
    int display = 0;
    int screen = 0;
    xcb_parse_display(nullptr, &host, &display, &screen);
    const Owned<char> given(host);
    return screen;
}

xcb_screen_t* screenOf(xcb_connection_t* connection, int number) {
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (; number > 0 && screens.rem > 1; --number)
        xcb_screen_next(&screens);
    return screens.data;
}

xcb_window_t checkWindow(const X11Connection& connection) {
    const auto window = connection.numbers(connection.root(), "_NET_SUPPORTING_WM_CHECK");
    return window.empty() ? xcb_window_t{XCB_NONE} : window.front();
}

bool supports(const X11Connection& connection, std::string_view feature) {
    const auto features = connection.numbers(connection.root(), "_NET_SUPPORTED");
    return std::ranges::find(features, connection.atom(feature)) != features.end();
}

} // namespace

std::optional<X11Connection> X11Connection::ofApplication() {
    const auto* application = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (application == nullptr || application->connection() == nullptr)
        return std::nullopt;
    return X11Connection(application->connection(), defaultScreen());
}

X11Connection X11Connection::over(xcb_connection_t* connection) {
    return {connection, defaultScreen()};
}

X11Connection::X11Connection(xcb_connection_t* connection, int screenNumber)
    : m_connection(connection)
    , m_screenNumber(screenNumber)
    , m_screen(screenOf(connection, screenNumber)) {}

xcb_atom_t X11Connection::atom(std::string_view name) const {
    const auto known = m_atoms->find(name);
    if (known != m_atoms->end())
        return known->second;
    return takeAtom(name, askForAtom(name));
}

void X11Connection::learnAtoms(std::span<const std::string_view> names) const {
    std::vector<xcb_intern_atom_cookie_t> cookies;
    for (const std::string_view name : names)
        cookies.push_back(askForAtom(name));
    for (std::size_t i = 0; i < names.size(); ++i)
        takeAtom(names[i], cookies[i]);
}

xcb_intern_atom_cookie_t X11Connection::askForAtom(std::string_view name) const {
    return xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
}

xcb_atom_t X11Connection::takeAtom(std::string_view name, xcb_intern_atom_cookie_t cookie) const {
    const auto reply = owned(xcb_intern_atom_reply(m_connection, cookie, nullptr));
    if (!reply)
        return XCB_ATOM_NONE;
    m_atoms->emplace(name, reply->atom);
    return reply->atom;
}

std::string X11Connection::compositorSelection() const {
    return "_NET_WM_CM_S" + std::to_string(m_screenNumber);
}

xcb_window_t X11Connection::selectionOwner(std::string_view selection) const {
    const auto cookie = xcb_get_selection_owner(m_connection, atom(selection));
    const auto reply = owned(xcb_get_selection_owner_reply(m_connection, cookie, nullptr));
    return reply ? reply->owner : xcb_window_t{XCB_NONE};
}

xcb_window_t X11Connection::focusedWindow() const {
    const auto cookie = xcb_get_input_focus(m_connection);
    const auto reply = owned(xcb_get_input_focus_reply(m_connection, cookie, nullptr));
    return reply ? reply->focus : xcb_window_t{XCB_NONE};
}

std::vector<std::uint8_t> X11Connection::bytes(xcb_window_t window, std::string_view property) const {
    const auto cookie = xcb_get_property(m_connection, 0, window, atom(property), XCB_GET_PROPERTY_TYPE_ANY,
                                         0, longestProperty);
    const auto reply = owned(xcb_get_property_reply(m_connection, cookie, nullptr));
    if (!reply)
        return {};
    const auto* begin = static_cast<const std::uint8_t*>(xcb_get_property_value(reply.get()));
    return {begin, begin + xcb_get_property_value_length(reply.get())};
}

std::vector<std::uint32_t> X11Connection::numbers(xcb_window_t window, std::string_view property) const {
    const auto raw = bytes(window, property);
    std::vector<std::uint32_t> values(raw.size() / sizeof(std::uint32_t));
    std::memcpy(values.data(), raw.data(), values.size() * sizeof(std::uint32_t));
    return values;
}

std::string X11Connection::text(xcb_window_t window, std::string_view property) const {
    const auto raw = bytes(window, property);
    return {raw.begin(), raw.end()};
}

void X11Connection::setNumbers(xcb_window_t window, std::string_view property, xcb_atom_t type,
                               std::span<const std::uint32_t> values) const {
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, atom(property), type, 32,
                        static_cast<std::uint32_t>(values.size()), values.data());
}

void X11Connection::setAtoms(xcb_window_t window, std::string_view property,
                             std::initializer_list<std::string_view> values) const {
    std::vector<std::uint32_t> atoms;
    for (const std::string_view value : values)
        atoms.push_back(atom(value));
    setNumbers(window, property, XCB_ATOM_ATOM, atoms);
}

void X11Connection::setText(xcb_window_t window, std::string_view property, std::string_view bytes) const {
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, atom(property), XCB_ATOM_STRING, 8,
                        static_cast<std::uint32_t>(bytes.size()), bytes.data());
}

void X11Connection::ask(xcb_window_t window, std::string_view message,
                        std::span<const std::uint32_t, 5> values) const {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = atom(message);
    std::ranges::copy(values, event.data.data32);
    xcb_send_event(m_connection, 0, root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&event));
}

void X11Connection::activate(xcb_window_t window) const {
    constexpr std::uint32_t fromUser = 2;
    ask(window, "_NET_ACTIVE_WINDOW", std::array{fromUser, std::uint32_t{XCB_CURRENT_TIME}, 0U, 0U, 0U});
}

void X11Connection::releaseKeyboard() const {
    xcb_set_input_focus(m_connection, XCB_INPUT_FOCUS_POINTER_ROOT, XCB_INPUT_FOCUS_POINTER_ROOT,
                        XCB_CURRENT_TIME);
}

WindowManager runningWindowManager(const X11Connection& connection) {
    const xcb_window_t window = checkWindow(connection);
    // A window manager that crashed leaves the root's property behind, but not the window that it names.
    const auto self = connection.numbers(window, "_NET_SUPPORTING_WM_CHECK");
    if (window == XCB_NONE || self.empty() || self.front() != window)
        return {};
    return {.presence = WindowManager::Presence::running,
            .below = supports(connection, "_NET_WM_STATE_BELOW") ? WindowManager::Below::supported
                                                                 : WindowManager::Below::unsupported,
            .name = connection.text(window, "_NET_WM_NAME")};
}

} // namespace vantel
