#pragma once

#include <QObject>
#include <QPoint>

class QMouseEvent;
class QWindow;

namespace vantel {

/// Tells a drag of a window from a click on something in it. The press reaches what it hits; once the pointer
/// has gone further than the desktop's drag distance, what was pressed sees a release far away from it, so
/// that it does nothing, and the rest of the gesture moves the window.
class CardDrag final : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// Looks at a window's events before its widgets do. Once for each native window.
    void watch(QWindow* window);

Q_SIGNALS:
    void began();

    /// How far the pointer is from where it was pressed.
    void moved(QPoint distance);
    void ended();

private:
    enum class Stage { idle, pressed, letGo, dragging };

    bool eventFilter(QObject* watched, QEvent* event) override;
    bool press(const QMouseEvent& event);
    bool move(QObject* window, const QMouseEvent& event);
    bool release(const QMouseEvent& event);
    bool end();
    void letGo(QObject* window, const QMouseEvent& event);

    Stage m_stage = Stage::idle;
    QPoint m_pressed;
};

} // namespace vantel
