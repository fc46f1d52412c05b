#pragma once

#include "host/scene/Look.h"
#include "hosting/WidgetView.h"

#include <QWidget>
#include <memory>
#include <optional>

namespace vantel {

namespace scene {
struct Target;
}

/// How a view takes the place of the one before.
enum class Arrival { atOnce, faded };

/// One widget's card: its background with round corners, and the view on it. It knows nothing of windows,
/// placements or files. Its size is fixed by the family and the scale; the shadow is the window's business.
/// All functions belong to the window thread.
class CardWidget final : public QWidget {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(CardWidget)

public:
    explicit CardWidget(const Formats& formats, QWidget* parent = nullptr);
    ~CardWidget() override;

    /// Shows a view. One that equals the view shown costs nothing: no layout, no repaint. A faded one appears
    /// through the one before, unless that one is empty, of another size, or motion is to be reduced.
    void setView(const WidgetView& view, Arrival arrival = Arrival::atOnce);
    void setLook(const Look& look);

    /// The moment from which times left are counted. Repaints only what reads differently.
    void setNow(Instant now);

    /// The next moment after `now` at which a time left on this card reads differently; absent when none is
    /// shown.
    std::optional<Instant> nextTick(Instant now) const;

    /// Marks the row of a pressed button as pending until `endPending`. Until then the button does nothing.
    void setPending(const IntentCall& intent);
    void endPending(const IntentCall& intent);

    /// Says something in words over the foot of the card for some seconds.
    void showNotice(const QString& text);

    /// Moves the keyboard focus to the first link or button.
    void focusFirst();

    /// Does what a click beside all links and buttons does: opens the view's own link, where it has one.
    void openOwnLink();

Q_SIGNALS:
    void linkActivated(const vantel::Url& url);
    void intentPressed(const vantel::IntentCall& intent);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void layOutWithNewFonts();
    void layOut();
    void makeScene();
    void countDown();
    void markPending();
    bool canFadeTo(const WidgetView& view) const;
    void redraw();
    void paintScene(QPainter& painter) const;
    QPixmap sceneOnly() const;
    void activate(const scene::Target& target);

    struct Private;
    std::unique_ptr<Private> m_private;
};

} // namespace vantel
