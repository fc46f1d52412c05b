#pragma once

#include <QWidget>

namespace vantel::scene {

/// A text on a card for people who hear the screen. It draws nothing and lets the mouse through.
class SpokenText final : public QWidget {
    Q_OBJECT

public:
    SpokenText(const QString& text, QWidget* card);
};

/// Lets assistive technology know cards and what is on them by their roles. Call it once, before the first
/// card.
void installSceneAccessibility();

} // namespace vantel::scene
