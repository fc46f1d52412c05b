#pragma once

#include "host/surface/WindowManagerPolicy.h"

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <xcb/xcb.h>

namespace vantel {

/// The application's connection to the X server, in the few words that desktop windows need. A value; the
/// connection is the application's.
class X11Connection {
public:
    /// Absent when the application does not run on X11.
    static std::optional<X11Connection> ofApplication();

    /// One that works, to the default screen of its server. It lives longer than the value.
    static X11Connection over(xcb_connection_t* connection);

    xcb_connection_t* xcb() const { return m_connection; }
    xcb_window_t root() const { return m_screen->root; }

    /// The server is asked once for each name: every answer is a way there and back.
    xcb_atom_t atom(std::string_view name) const;

    /// Asks for many names on one way there and back.
    void learnAtoms(std::span<const std::string_view> names) const;

    /// "_NET_WM_CM_S0" with the number of this screen: who owns it blends windows.
    std::string compositorSelection() const;
    xcb_window_t selectionOwner(std::string_view selection) const;

    /// Empty when the window has no such property or is gone.
    std::vector<std::uint32_t> numbers(xcb_window_t window, std::string_view property) const;
    std::string text(xcb_window_t window, std::string_view property) const;

    void setNumbers(xcb_window_t window, std::string_view property, xcb_atom_t type,
                    std::span<const std::uint32_t> values) const;
    void setAtoms(xcb_window_t window, std::string_view property,
                  std::initializer_list<std::string_view> values) const;
    void setText(xcb_window_t window, std::string_view property, std::string_view bytes) const;

    /// Asks the window manager something about a window.
    void ask(xcb_window_t window, std::string_view message, std::span<const std::uint32_t, 5> values) const;

    /// Asks for the keyboard to go to a window, as the user wishes it.
    void activate(xcb_window_t window) const;

    /// The window that keys go to, whoever listens in between; none if the server does not say.
    xcb_window_t focusedWindow() const;

    /// Takes the keyboard from whichever window has it.
    void releaseKeyboard() const;

    /// Hands over what was said so far.
    void flush() const { xcb_flush(m_connection); }

private:
    X11Connection(xcb_connection_t* connection, int screenNumber);

    xcb_intern_atom_cookie_t askForAtom(std::string_view name) const;
    xcb_atom_t takeAtom(std::string_view name, xcb_intern_atom_cookie_t cookie) const;
    std::vector<std::uint8_t> bytes(xcb_window_t window, std::string_view property) const;

    using Atoms = std::map<std::string, xcb_atom_t, std::less<>>;

    std::shared_ptr<Atoms> m_atoms = std::make_shared<Atoms>();
    xcb_connection_t* m_connection;
    int m_screenNumber;
    xcb_screen_t* m_screen;
};

/// Who manages the windows of this display now.
WindowManager runningWindowManager(const X11Connection& connection);

} // namespace vantel
