#pragma once

#include <QPixmap>
#include <QVariantAnimation>
#include <functional>

class QPainter;
class QWidget;

namespace vantel::scene {

/// Lets what a card shows appear through what it showed before. Both are pictures that are taken once, since
/// drawing all texts anew in each frame would cost several times as much.
class Crossfade {
public:
    /// Repaints the card in each frame.
    explicit Crossfade(QWidget& card);

    void begin(QPixmap before);
    bool isRunning() const { return !m_before.isNull(); }

    /// What the card shows now has changed: its picture is taken anew for the next frame.
    void takeAnew() { m_after = {}; }

    /// Draws this moment, while it runs.
    void paint(QPainter& painter, const std::function<QPixmap()>& takeAfter);

private:
    QVariantAnimation m_animation;
    QPixmap m_before;
    QPixmap m_after;
};

} // namespace vantel::scene
