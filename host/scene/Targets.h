#pragma once

#include "host/scene/Scene.h"

#include <QWidget>

namespace vantel::scene {

class ActionArea;

/// The invisible widgets over a card that make its links, buttons and texts reachable. They are kept while a
/// card has the same links and buttons, so that the keyboard focus stays where it is.
class Targets final : public QObject {
    Q_OBJECT

public:
    explicit Targets(QWidget* card);

    /// Follows a new layout of the card, drawn at so many logical pixels a point.
    void follow(const Scene& scene, double scale);

    ActionArea* first() const;

Q_SIGNALS:
    void activated(const vantel::scene::Target& target);

private:
    void rebuild(const Scene& scene);
    void addArea(const Target& target);

    QWidget* m_card;
    std::vector<QString> m_identities; ///< of what the widgets stand for, in reading order
    std::vector<std::unique_ptr<QWidget>> m_widgets;
};

} // namespace vantel::scene
