#pragma once

#include "host/surface/WindowSystem.h"
#include "host/surface/X11Connection.h"

#include <QAbstractNativeEventFilter>
#include <set>

namespace vantel {

/// Surfaces on X11. Follows the compositor and the window manager as they come and go.
class X11WindowSystem final : public WindowSystem, private QAbstractNativeEventFilter {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(X11WindowSystem)

public:
    explicit X11WindowSystem(X11Connection connection);
    ~X11WindowSystem() override;

    std::unique_ptr<Surface> makeSurface(QWidget& window) override;
    Blending blending() const override { return m_blending; }

    const X11Connection& connection() const { return m_connection; }
    const WindowManager& manager() const { return m_manager; }

    /// Remembers which window has the keyboard, unless it is one of this program's.
    void rememberFocus();

    /// Asks for the keyboard to go back to the window that was remembered; where there is none any more,
    /// gives it to no window at all, so that the window manager may choose one.
    void restoreFocus();

private:
    bool isStateOfCard(const xcb_property_notify_event_t& change) const;
    bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;
    void watchCompositor();
    void lookForCompositor();
    void lookForManager();

    X11Connection m_connection;
    std::uint8_t m_selectionEvent = 0; ///< 0 where the server does not tell about selections
    Blending m_blending = Blending::none;
    WindowManager m_manager;
    xcb_window_t m_focusBefore = XCB_NONE;
    std::set<const QWidget*> m_cards;
};

} // namespace vantel
