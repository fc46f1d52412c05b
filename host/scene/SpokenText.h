#pragma once

#include <QWidget>

namespace vantel::scene {

/// A text on a card, its accessible name, for people who hear the screen. It draws nothing and lets the mouse
/// through.
class SpokenText final : public QWidget {
    Q_OBJECT

public:
    explicit SpokenText(QWidget* card);
};

} // namespace vantel::scene
