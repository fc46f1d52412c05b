#pragma once

#include "host/surface/CardShape.h"

#include <QPoint>

class QMenu;
class QScreen;

namespace vantel {

/// What a card's window needs of the window system: to stand on the desktop, below all other windows, on all
/// workspaces, out of every list, and to be out of the way of the keyboard until it is asked in.
///
/// A surface belongs to one top-level widget and ends before it. Positions are of the window, shadow
/// included, in logical pixels of the whole desktop.
class Surface {
public:
    virtual ~Surface() = default;

    /// Shows the window, or shows it anew if it is shown. Takes the focus from nobody.
    virtual void show(QScreen* screen, QPoint position) = 0;
    virtual void move(QPoint position) = 0;
    virtual void hide() = 0;

    /// Where the window stands, or is on its way to.
    virtual QPoint position() const = 0;

    /// Until `settle`, every move follows a pointer that was pressed in the window.
    virtual void lift() = 0;

    /// The window was dropped on a screen, where its last move brought it.
    virtual void settle(QScreen* screen) = 0;

    /// Opens a menu of the window at a place in it. The menu closes by itself.
    virtual void openMenu(QMenu& menu, QPoint place) = 0;

    /// The part of the window that is the card. Clicks beyond it go to what lies behind; where nothing blends
    /// windows, the rest is cut off.
    virtual void setCardShape(const CardShape& shape) = 0;

    /// Brings the window to the front and the keyboard to it, as the user asked for it.
    virtual void takeFocus() = 0;

    /// Whether keys come to the window now; true where nobody can tell.
    virtual bool hasKeyboard() const { return true; }

    /// Puts the window back to its place below the others, and the keyboard to where it was.
    virtual void giveFocusBack() = 0;
};

} // namespace vantel
