#include "host/surface/PlainWindowSystem.h"

#include "host/surface/WindowSurface.h"

#include <QGuiApplication>
#include <QWidget>

namespace vantel {

namespace {

class PlainSurface final : public WindowSurface {
public:
    explicit PlainSurface(QWidget& window)
        : WindowSurface(window) {
        window.setWindowFlags(Qt::FramelessWindowHint | Qt::WindowStaysOnBottomHint);
    }

    void show(QScreen*, QPoint position) override {
        widget().move(position);
        widget().show();
    }

    void setCardShape(const CardShape&) override {}
    void takeFocus() override { widget().activateWindow(); }
    bool hasKeyboard() const override { return QGuiApplication::focusWindow() == widget().windowHandle(); }
    void giveFocusBack() override { widget().clearFocus(); }
};

} // namespace

std::unique_ptr<Surface> PlainWindowSystem::makeSurface(QWidget& window) {
    return std::make_unique<PlainSurface>(window);
}

void PlainWindowSystem::setBlending(Blending blending) {
    m_blending = blending;
    Q_EMIT blendingChanged();
}

} // namespace vantel
