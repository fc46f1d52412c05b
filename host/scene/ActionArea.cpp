#include "host/scene/ActionArea.h"

#include <QKeyEvent>
#include <QPainter>

namespace vantel::scene {

namespace {

constexpr double ringWidth = 2;
constexpr double ringRadius = 7;

} // namespace

ActionArea::ActionArea(const Target& target, QWidget* card)
    : QAbstractButton(card)
    , m_target(target) {
    setAccessibleName(target.label);
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::TabFocus);
}

void ActionArea::paintEvent(QPaintEvent*) {
    if (!hasFocus())
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(QPalette::Highlight), ringWidth));
    const double inset = ringWidth / 2;
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), ringRadius, ringRadius);
}

/// Space presses buttons; people expect the same of the Enter keys.
void ActionArea::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

} // namespace vantel::scene
