#pragma once

#include "host/surface/WindowSurface.h"
#include "host/surface/X11WindowSystem.h"

#include <QWidget>

namespace vantel {

/// A desktop window on X11, as the running window manager needs it. Types, hints and states are set before
/// the window is mapped; the toolkit adds its own states to them. A window that is shown again asks for its
/// states besides: the window manager takes them from a hidden window when it comes to it, which may be after
/// they were set.
class X11Surface final : public WindowSurface {
public:
    X11Surface(QWidget& window, X11WindowSystem& system);

    void show(QScreen* screen, QPoint position) override;
    void setCardShape(const CardShape& shape) override;
    void takeFocus() override;
    bool hasKeyboard() const override;
    void giveFocusBack() override;

private:
    enum class Keyboard { refused, accepted };
    enum class StateChange : std::uint32_t { remove = 0, add = 1 };

    xcb_window_t window() const;
    void chooseFlags();
    void announce() const;
    void standBelow() const;
    void lower() const;
    void activate() const;
    void setKeyboard(Keyboard keyboard) const;
    void changeState(StateChange change, std::string_view first, std::string_view second = {}) const;
    void applyShape() const;

    /// A second later: a window manager that is only just starting can miss a window, which then is never
    /// seen, and one that heeds requests alone leaves it without its states.
    void mendIfMissed();
    bool isLost() const;
    bool standsBelow() const;

    X11WindowSystem& m_system;
    const X11Connection& m_connection;
    WindowMode m_mode = WindowMode::normalBelow;
    CardShape m_shape;
    int m_triesLeft = 5;
    bool m_wasShown = false;
    bool m_isRaised = false; ///< while the card has been asked in
};

} // namespace vantel
