#pragma once

#include "host/surface/Surface.h"

class QWidget;

namespace vantel {

/// A surface on a desktop where programs know where their windows are and may put them anywhere.
class WindowSurface : public Surface {
public:
    explicit WindowSurface(QWidget& window)
        : m_window(window) {}

    void move(QPoint position) override;
    void hide() override;
    QPoint position() const override;
    void lift() override {}
    void settle(QScreen*) override {}
    void openMenu(QMenu& menu, QPoint place) override;

protected:
    QWidget& widget() const { return m_window; }

private:
    QWidget& m_window;
};

} // namespace vantel
