#pragma once

#include "platform/Instant.h"

#include <QObject>
#include <optional>

namespace vantel {

/// Wakes the window thread at one moment of the real-time clock.
class Alarm : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// The earliest moment to wake up at, in place of the one set before; absent for none. A moment that has
    /// passed is reached at once, but never inside this call. Asking for the moment that is set costs
    /// nothing.
    virtual void wakeAt(std::optional<Instant> moment) = 0;

Q_SIGNALS:
    /// The moment has come; none is set any more.
    void reached();

    /// Somebody set the clock. None is set any more.
    void clockStepped();
};

} // namespace vantel
