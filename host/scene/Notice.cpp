#include "host/scene/Notice.h"

#include "host/scene/DisplayText.h"
#include "host/scene/TextBlock.h"

#include <QPainter>
#include <chrono>
#include <cmath>

namespace vantel::scene {

namespace {

using namespace std::chrono_literals;

constexpr auto shownFor = 6s;
constexpr double edge = 10;
constexpr double horizontalPadding = 12;
constexpr double verticalPadding = 8;
constexpr double cornerRadius = 12;
constexpr QRgb ink = 0xFF1B1A17;
constexpr QRgb paper = 0xFFFAFAF8;
constexpr QRgb ring = 0x24FFFFFF;

TextStyle noticeStyle() {
    return {.font = {.size = 10.5, .weight = FontWeight::medium}};
}

/// As many lines as there is room for: a sentence that is cut does not say what went wrong.
TextBlock wrapped(const QString& text, const Look& look, const QSizeF& room) {
    const TextStyle style = noticeStyle();
    const SceneFont font = sceneFont(style, look);
    const LineMetrics metrics = lineMetrics(font, style.font.size);
    return textBlock(text, font, metrics, {room.width(), static_cast<int>(room.height() / metrics.pitch)});
}

/// Inside a notice that is as large as that.
QSizeF textRoom(const QSizeF& notice) {
    return notice - 2 * QSizeF(horizontalPadding, verticalPadding);
}

} // namespace

Notice::Notice(QWidget* card)
    : QWidget(card) {
    hide();
    setAttribute(Qt::WA_TransparentForMouseEvents);
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &QWidget::hide);
}

void Notice::say(const QString& text, const Look& look) {
    m_text = displayText(text.toStdString());
    m_look = look;
    setAccessibleName(m_text);
    const double scale = look.scale;
    const QSizeF largest = QSizeF(parentWidget()->size()) / scale - 2 * QSizeF(edge, edge);
    const double height = wrapped(m_text, look, textRoom(largest)).size().height() + 2 * verticalPadding;
    const QRectF place(edge, edge + largest.height() - height, largest.width(), height);
    setGeometry(QRectF(place.topLeft() * scale, place.size() * scale).toAlignedRect());
    show();
    raise();
    update();
    m_timer.start(shownFor);
}

void Notice::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(m_look.scale, m_look.scale);
    const QRectF area({0, 0}, QSizeF(size()) / m_look.scale);
    painter.setPen(QColor::fromRgba(ring));
    painter.setBrush(QColor::fromRgba(ink));
    painter.drawRoundedRect(area.adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius, cornerRadius);
    painter.setPen(QColor::fromRgba(paper));
    const TextBlock block = wrapped(m_text, m_look, textRoom(area.size()) + QSizeF(0, 1));
    double baseline = verticalPadding + block.metrics.ascent;
    for (const TextLine& line : block.lines) {
        drawLine(painter, {(area.width() - line.width) / 2, baseline}, line);
        baseline += block.metrics.pitch;
    }
}

} // namespace vantel::scene
