#pragma once

#include "cli/Command.h"
#include "widgets/WidgetNames.h"

#include <string>

namespace vantel {

inline std::unexpected<CommandFailure> unknownWidget(std::string what, const std::string& name) {
    return wrongUsage(std::move(what), "no widget is named \"" + name +
                                           "\" (there are focus, next-up, triage and group-today)");
}

} // namespace vantel
