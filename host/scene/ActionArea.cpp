#include "host/scene/ActionArea.h"

#include "host/scene/FocusRing.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <utility>

namespace vantel::scene {

namespace {

constexpr double ringRadius = 7;

} // namespace

ActionArea::ActionArea(Target target, QWidget* card)
    : QAbstractButton(card)
    , m_target(std::move(target)) {
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::TabFocus);
}

void ActionArea::paintEvent(QPaintEvent*) {
    if (!hasFocus() || !m_hasRing)
        return;
    QPainter painter(this);
    drawFocusRing(painter, *this, ringRadius);
}

void ActionArea::takeKeyboard() {
    m_hasRing = true;
    setFocus(Qt::TabFocusReason);
    update();
}

void ActionArea::focusInEvent(QFocusEvent* event) {
    m_hasRing = hasRingAfterFocusIn(m_hasRing, event->reason());
    QAbstractButton::focusInEvent(event);
}

void ActionArea::focusOutEvent(QFocusEvent* event) {
    m_hasRing = hasRingAfterFocusOut(m_hasRing, event->reason());
    QAbstractButton::focusOutEvent(event);
}

/// A first click may have brought another task under the pointer, and the second one was never meant for it.
void ActionArea::mouseDoubleClickEvent(QMouseEvent* event) {
    event->accept();
}

/// Space presses buttons; people expect the same of the Enter keys.
void ActionArea::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

} // namespace vantel::scene
