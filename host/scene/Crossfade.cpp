#include "host/scene/Crossfade.h"

#include <QPainter>
#include <QWidget>
#include <utility>

namespace vantel::scene {

namespace {

constexpr int milliseconds = 200;

/// The sum of both, each in its part: laid one over the other, their round corners would be too dark.
QPixmap blended(const QPixmap& before, const QPixmap& after, double partBefore) {
    QPixmap sum(before.size());
    sum.setDevicePixelRatio(before.devicePixelRatio());
    sum.fill(Qt::transparent);
    QPainter painter(&sum);
    painter.setCompositionMode(QPainter::CompositionMode_Plus);
    painter.setOpacity(partBefore);
    painter.drawPixmap(0, 0, before);
    painter.setOpacity(1 - partBefore);
    painter.drawPixmap(0, 0, after);
    return sum;
}

} // namespace

Crossfade::Crossfade(QWidget& card) {
    m_animation.setDuration(milliseconds);
    m_animation.setStartValue(1.0);
    m_animation.setEndValue(0.0);
    QObject::connect(&m_animation, &QVariantAnimation::valueChanged, &card, qOverload<>(&QWidget::update));
    QObject::connect(&m_animation, &QVariantAnimation::finished, &m_animation, [this] {
        m_before = {};
        m_after = {};
    });
}

void Crossfade::begin(QPixmap before) {
    m_animation.stop();
    m_before = std::move(before);
    m_after = {};
    m_animation.start();
}

void Crossfade::paint(QPainter& painter, const std::function<QPixmap()>& takeAfter) {
    if (m_after.isNull())
        m_after = takeAfter();
    painter.drawPixmap(0, 0, blended(m_before, m_after, m_animation.currentValue().toDouble()));
}

} // namespace vantel::scene
