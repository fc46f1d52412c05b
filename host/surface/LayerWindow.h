#pragma once

#include "host/surface/LayerRole.h"

#include <QObject>
#include <memory>

class QScreen;
class QWidget;

namespace vantel {

/// A top-level widget that stands on a layer of an output instead of being an ordinary window. The widget
/// outlives it, or ends it as its child.
///
/// The toolkit takes away the surface of a window that is hidden, closed or brought to another screen, and
/// makes another one when it is shown; the role goes before and is made anew with `stand`.
class LayerWindow final : public QObject {
    Q_OBJECT

public:
    LayerWindow(QWidget& widget, const WaylandConnection& connection, QObject* parent = nullptr);
    ~LayerWindow() override;

    /// Asks the compositor for the place, and says `ready` once the widget may be shown there. Nothing
    /// happens on the stand-in that the toolkit keeps while there is no output.
    void stand(QScreen& screen, const LayerState& state);
    bool isStanding() const { return m_role != nullptr; }

    /// Tells the compositor what differs, while it is standing.
    void change(const LayerState& state);

    /// Hides the widget.
    void takeDown();

Q_SIGNALS:
    void ready();

    /// The compositor took the surface away, and the widget was hidden.
    void closed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void create(QScreen& screen);

    QWidget& m_widget;
    const WaylandConnection& m_connection;
    std::unique_ptr<LayerRole> m_role;
};

} // namespace vantel
