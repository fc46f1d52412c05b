#pragma once

#include "host/surface/WindowSurface.h"
#include "host/surface/X11WindowSystem.h"

#include <QWidget>

namespace vantel {

/// A desktop window on X11, as the running window manager needs it. Types, hints and states are set before
/// the window is mapped; the toolkit adds its own states to them.
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

    /// A window manager that is only just starting can miss a window, which then is never seen, or what was
    /// written on it.
    void mendIfMissed();
    bool isLost() const;
    bool standsBelow() const;

    X11WindowSystem& m_system;
    const X11Connection& m_connection;
    WindowMode m_mode = WindowMode::normalBelow;
    CardShape m_shape;
    int m_triesLeft = 5;
};

} // namespace vantel
