#pragma once

#include "host/app/Options.h"
#include "host/app/Pictures.h"
#include "platform/SystemCalendar.h"

namespace vantel {

/// Draws what the options ask for and writes it to their output. Returns the exit status: 0, 1 when a file
/// cannot be read or written, 2 for a widget or moment that there is not. Failures are said on standard
/// error.
int drawPicture(const Options& options, const WidgetBundle& bundle, const SystemCalendar& calendar,
                const Formats& formats);

} // namespace vantel
