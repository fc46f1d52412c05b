#pragma once

#include "host/scene/Look.h"

#include <QTimer>
#include <QWidget>

namespace vantel::scene {

/// Words over the foot of a card that go away by themselves. Plain text.
class Notice final : public QWidget {
    Q_OBJECT

public:
    explicit Notice(QWidget* card);

    void say(const QString& text, const Look& look);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_text;
    Look m_look;
    QTimer m_timer;
};

} // namespace vantel::scene
