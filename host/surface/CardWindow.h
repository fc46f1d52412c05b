#pragma once

#include "host/surface/CardDrag.h"
#include "host/surface/WidgetMenu.h"
#include "host/surface/WindowSystem.h"

#include <QPointer>
#include <QScreen>
#include <QWidget>

namespace vantel {

/// The desktop window of one card: the card in the middle, its shadow around it, clicks only where the card
/// is. Positions are the card's, in logical pixels of the whole desktop. Knows nothing of placements: it
/// asks, and whoever places it answers with `moveCard`.
///
/// The card is any widget of a fixed size, which may change. A release of the mouse outside of what was
/// pressed must mean nothing to it.
class CardWindow final : public QWidget {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(CardWindow)

public:
    /// Owns the card. `scale` is the card's.
    CardWindow(QWidget* card, double scale, WindowSystem& windows, const Formats& formats);
    ~CardWindow() override;

    QWidget* card() const { return m_card; }
    QRect cardGeometry() const;

    void setScale(double scale);
    void setFamilies(FamilyChoice choice) { m_choice = std::move(choice); }

    /// Shows the card there, or brings it there from another screen.
    void showCard(QScreen* screen, QPoint position);
    void moveCard(QPoint position);

    /// Takes the card from the desktop, until it is shown again.
    void hideCard();

    /// The screen that the card was shown on, or was dropped on.
    QScreen* cardScreen() const { return m_screen; }

    /// Ends a drag where the card was moved to last, on that screen.
    void settleCard(QScreen* screen);

    /// Brings the keyboard to the first link or button of the card. Escape, or another window, takes it away.
    /// Keys that come while it was not brought do nothing, whatever sent them here.
    void takeFocus();
    void giveFocusBack();
    bool hasTakenFocus() const { return m_hasTakenFocus; }

    /// Opens the card's menu at a place of this window.
    void openMenu(QPoint position);

Q_SIGNALS:
    /// Where a drag would have the card.
    void dragged(QPoint position);
    void dropped();

    /// The card has another size, and stands where it stood.
    void cardResized();
    void focusTaken();
    void familyChosen(vantel::WidgetFamily family);
    void commandChosen(vantel::MenuCommand command);

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    QPoint shadowOffset() const;
    void layOut();
    void shapeCard();
    void showAgain();
    void showFocus();
    void loseFocus();
    void noticeLoss();
    void clearFocusOfCard();

    QWidget* m_card;
    double m_scale;
    WindowSystem& m_windows;
    const Formats& m_formats;
    FamilyChoice m_choice;
    std::unique_ptr<Surface> m_surface;
    CardDrag m_drag;
    QPoint m_dragOrigin;
    QPointer<QScreen> m_screen;
    bool m_isPlaced = false;
    bool m_hasTakenFocus = false;
    bool m_isKeyboardAwaited = false; ///< it was asked for, and nobody has said that it came
};

} // namespace vantel
