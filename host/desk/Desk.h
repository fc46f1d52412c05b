#pragma once

#include "host/WidgetKey.h"
#include "host/desk/Arrangement.h"
#include "host/desk/PlacementSaver.h"
#include "host/desk/Screens.h"
#include "host/surface/CardWindow.h"

#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace vantel {

struct WidgetBundle;

/// What stands on the desktop, one key for each widget, in the order in which they came.
using PlacedWidgets = std::vector<WidgetKey>;

/// What a desk works with. All of it outlives the desk.
struct DeskParts {
    const WidgetBundle& bundle;
    const Formats& formats;
    WindowSystem& windows;
    Screens& screens;
    PlacementSaver& store;
    UuidSource& identifiers;

    /// Makes the card of a placement, of its family's size at the current scale. The desk owns it, and
    /// deletes it when the widget is removed, gets another size, or its monitor goes.
    std::function<QWidget*(const Placement&)> makeCard;
};

/// The widgets on the desktop: one window for each placement whose monitor is there. Several of one kind may
/// stand side by side. Every change that the user makes is saved at once, a drag at its end.
class Desk final : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(Desk)

public:
    explicit Desk(DeskParts parts, double scale = 1);
    ~Desk() override;

    /// Shows the widgets where they were left; on a first start, every kind in the first arrangement.
    void start();

    /// Puts a widget on the primary monitor, at a free spot. Nothing happens where there is no monitor, or no
    /// such widget.
    void add(const std::string& kind, WidgetFamily family);
    void remove(const Uuid& id);

    /// Keeps the corner and its distances, unless the card would then lie over another.
    void resize(const Uuid& id, WidgetFamily family);

    /// The scale of the cards, which change their sizes by themselves.
    void setScale(double scale);

    /// Gives the keyboard to the first widget, and on each further call to the next.
    void focusWidgets();

    const Placements& placements() const { return m_placements; }

    /// The widgets that are on the desktop, those that wait for their monitor not included.
    PlacedWidgets placed() const;

    /// The window of a placement, or null.
    CardWindow* window(const Uuid& id) const;

Q_SIGNALS:
    void placedChanged(const vantel::PlacedWidgets& placed);

    /// The keyboard came to this card: its first link or button should have the focus.
    void cardFocused(QWidget* card);
    void addWidgetsAsked();
    void reloadAsked(const std::string& kind);
    void aboutAsked();
    void quitAsked();

private:
    struct Deleter {
        void operator()(CardWindow* window) const;
    };
    using Window = std::unique_ptr<CardWindow, Deleter>;

    Placement* find(const Uuid& id);
    bool isKnown(const std::string& kind, WidgetFamily family) const;
    const Monitor* monitorOf(const Placement& placement, const std::vector<Monitor>& monitors) const;
    void placeFirst(const Monitor& monitor);
    std::vector<WidgetSpot> firstSpots(const Monitor& monitor) const;
    void arrangeFirst(const Monitor& monitor);
    void keep();
    void adopt(const Monitor& monitor, const std::vector<Monitor>& monitors);
    std::vector<QRect> cardsOn(const Monitor& monitor, const Uuid& without) const;
    void update();
    QPoint shownPosition(const Placement& placement, QSize card, const Monitor& monitor,
                         const std::vector<QRect>& shown) const;
    void updateWindow(const Placement& placement, const std::vector<Monitor>& monitors,
                      std::vector<QRect>& shown);
    Window makeWindow(const Placement& placement);
    void connectWindow(CardWindow& window, const Uuid& id);
    void announce();
    void drag(const Uuid& id, QPoint position);
    void drop(const Uuid& id);
    void moveAside(CardWindow& dropped, const std::vector<QRect>& others, const Monitor& monitor) const;
    void run(const Uuid& id, MenuCommand command);

    DeskParts m_parts;
    double m_scale;
    Placements m_placements;
    std::map<Uuid, Window> m_windows;
    PlacedWidgets m_announced;
    MonitorSets m_seen;
    QPointer<CardWindow> m_lastFocused;
    bool m_isFirstStart = false;
    bool m_isAsFirst = false; ///< the user has not arranged anything since the first arrangement
};

} // namespace vantel
