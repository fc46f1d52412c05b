#include "host/scene/FocusRing.h"

#include <QPainter>

namespace vantel::scene {

namespace {

constexpr double width = 2;

} // namespace

bool hasRingAfterFocusIn(bool hadRing, Qt::FocusReason reason) {
    if (reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason)
        return hadRing;
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
           reason == Qt::ShortcutFocusReason;
}

bool hasRingAfterFocusOut(bool hadRing, Qt::FocusReason reason) {
    return hadRing && reason == Qt::PopupFocusReason;
}

void drawFocusRing(QPainter& painter, const QWidget& widget, double radius) {
    constexpr double inset = width / 2;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(widget.palette().color(QPalette::Highlight), width));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(widget.rect()).adjusted(inset, inset, -inset, -inset), radius - inset,
                            radius - inset);
}

} // namespace vantel::scene
