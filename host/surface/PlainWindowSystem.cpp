#include "host/surface/PlainWindowSystem.h"

#include <QGuiApplication>
#include <QWidget>

namespace vantel {

namespace {

class PlainSurface final : public Surface {
public:
    explicit PlainSurface(QWidget& window)
        : m_window(window) {
        window.setWindowFlags(Qt::FramelessWindowHint | Qt::WindowStaysOnBottomHint);
    }

    void show(QScreen*, QPoint position) override {
        m_window.move(position);
        m_window.show();
    }

    void move(QPoint position) override { m_window.move(position); }
    void hide() override { m_window.hide(); }
    void setCardShape(const QRegion&) override {}
    void takeFocus() override { m_window.activateWindow(); }
    bool hasKeyboard() const override { return QGuiApplication::focusWindow() == m_window.windowHandle(); }
    void giveFocusBack() override { m_window.clearFocus(); }

private:
    QWidget& m_window;
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
