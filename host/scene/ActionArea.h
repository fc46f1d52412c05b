#pragma once

#include "host/scene/Scene.h"

#include <QAbstractButton>

namespace vantel::scene {

/// The place on a card where a link or a button can be clicked, focused and heard. The card draws what is
/// seen there; this draws the ring of the keyboard focus alone.
class ActionArea final : public QAbstractButton {
    Q_OBJECT

public:
    ActionArea(Target target, QWidget* card);

    const Target& target() const { return m_target; }

    /// Takes the focus, with its ring, at once or as soon as the window is active.
    void takeKeyboard();

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    Target m_target;
    bool m_hasRing = false;
};

} // namespace vantel::scene
