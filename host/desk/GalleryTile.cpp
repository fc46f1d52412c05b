#include "host/desk/GalleryTile.h"

#include "host/scene/Look.h"

#include <QEvent>
#include <QKeyEvent>
#include <QPainter>
#include <cmath>

namespace vantel {

namespace {

constexpr double ringWidth = 3;
constexpr double ringGap = 3;
constexpr float hoverOpacity = 0.35F;

QColor faded(QColor color, float opacity) {
    color.setAlphaF(opacity);
    return color;
}

} // namespace

GalleryTile::GalleryTile(QWidget* preview, double scale, QWidget* parent)
    : QAbstractButton(parent)
    , m_preview(preview)
    , m_scale(scale) {
    preview->setParent(this);
    preview->move(ringRoom(scale), ringRoom(scale));
    preview->setAttribute(Qt::WA_TransparentForMouseEvents);
    preview->setEnabled(false);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setCursor(Qt::PointingHandCursor);
    setFixedSize(sizeHint());
}

int GalleryTile::ringRoom(double scale) {
    return static_cast<int>(std::ceil((ringGap + ringWidth) * scale));
}

QRect GalleryTile::card() const {
    return m_preview->geometry();
}

QSize GalleryTile::sizeHint() const {
    return m_preview->size() + 2 * QSize(ringRoom(m_scale), ringRoom(m_scale));
}

void GalleryTile::paintEvent(QPaintEvent*) {
    const QColor highlight = palette().color(QPalette::Highlight);
    if (hasFocus())
        drawRing(highlight);
    else if (underMouse())
        drawRing(faded(highlight, hoverOpacity));
}

void GalleryTile::drawRing(const QColor& color) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, ringWidth * m_scale));
    const double outside = (ringGap + ringWidth / 2) * m_scale;
    const double radius = cardCornerRadius * m_scale + outside;
    painter.drawRoundedRect(QRectF(card()).adjusted(-outside, -outside, outside, outside), radius, radius);
}

void GalleryTile::keyPressEvent(QKeyEvent* event) {
    const int forward = isRightToLeft() ? Qt::Key_Left : Qt::Key_Right;
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return click();
    case Qt::Key_Down:
        focusNextChild();
        return;
    case Qt::Key_Up:
        focusPreviousChild();
        return;
    case Qt::Key_Right:
    case Qt::Key_Left:
        event->key() == forward ? focusNextChild() : focusPreviousChild();
        return;
    default:
        QAbstractButton::keyPressEvent(event);
    }
}

bool GalleryTile::event(QEvent* event) {
    const bool isFocusChange = event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut;
    if (isFocusChange)
        update();
    return QAbstractButton::event(event);
}

} // namespace vantel
