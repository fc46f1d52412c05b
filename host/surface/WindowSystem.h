#pragma once

#include "host/surface/Surface.h"

#include <QObject>
#include <QRect>
#include <memory>
#include <string>

class QScreen;
class QWidget;

namespace vantel {

/// Whether windows are blended with what lies behind them, so that they can have shadows and soft corners.
enum class Blending { none, blended };

/// Where surfaces come from. One object for the program, made after the application and ended before it.
class WindowSystem : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// A surface for a top-level widget that was not shown yet. The window system outlives it.
    virtual std::unique_ptr<Surface> makeSurface(QWidget& window) = 0;
    virtual Blending blending() const = 0;

    /// The serial number of a screen; empty where nobody tells it.
    virtual std::string serialNumber(const QScreen& screen);

    /// The part of a screen that is without panels, as far as it is known.
    virtual QRect availableGeometry(const QScreen& screen);

Q_SIGNALS:
    void blendingChanged();

    /// Another window manager took over: what is shown should be shown anew.
    void managerChanged();
};

/// The one that fits the application's platform: X11, Wayland with layers, or where no desktop is known (as
/// in tests), windows that are no more than shown.
std::unique_ptr<WindowSystem> makeWindowSystem();

} // namespace vantel
