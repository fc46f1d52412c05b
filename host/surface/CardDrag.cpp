#include "host/surface/CardDrag.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWindow>
#include <utility>

namespace vantel {

namespace {

constexpr QPointF farAway(-10000, -10000);

} // namespace

void CardDrag::watch(QWindow* window) {
    window->installEventFilter(this);
}

bool CardDrag::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return press(static_cast<const QMouseEvent&>(*event));
    case QEvent::MouseMove:
        return move(watched, static_cast<const QMouseEvent&>(*event));
    case QEvent::MouseButtonRelease:
        return release(static_cast<const QMouseEvent&>(*event));
    default:
        return false;
    }
}

bool CardDrag::press(const QMouseEvent& event) {
    if (event.button() == Qt::LeftButton && m_stage == Stage::idle) {
        m_stage = Stage::pressed;
        m_pressed = event.globalPosition().toPoint();
    }
    return m_stage == Stage::dragging; // no menu opens meanwhile
}

bool CardDrag::move(QObject* window, const QMouseEvent& event) {
    if (!event.buttons().testFlag(Qt::LeftButton))
        return end();
    const QPoint distance = event.globalPosition().toPoint() - m_pressed;
    if (m_stage == Stage::pressed && distance.manhattanLength() >= QApplication::startDragDistance()) {
        letGo(window, event);
        m_stage = Stage::dragging;
        Q_EMIT began();
    }
    if (m_stage != Stage::dragging)
        return false;
    Q_EMIT moved(distance);
    return true;
}

void CardDrag::letGo(QObject* window, const QMouseEvent& event) {
    m_stage = Stage::letGo;
    QMouseEvent away(QEvent::MouseButtonRelease, farAway, farAway, farAway, Qt::LeftButton, Qt::NoButton,
                     event.modifiers());
    QCoreApplication::sendEvent(window, &away);
}

bool CardDrag::release(const QMouseEvent& event) {
    if (m_stage == Stage::letGo)
        return false;
    return event.button() == Qt::LeftButton ? end() : m_stage == Stage::dragging;
}

/// Also where the release went to another window, as when one was opened under the pointer.
bool CardDrag::end() {
    if (std::exchange(m_stage, Stage::idle) != Stage::dragging)
        return false;
    Q_EMIT ended();
    return true;
}

} // namespace vantel
