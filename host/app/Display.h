#pragma once

#include "host/app/BackEnd.h"
#include "host/app/Options.h"

#include <expected>

namespace vantel {

/// What this session offers. Asks its X server and its compositor.
DisplayFacts displayFacts(WantedBackEnd wanted);

/// Tells the toolkit what to draw on, by its environment variables, before there is an application object.
void useBackEnd(BackEnd backEnd);

/// Makes the toolkit draw into memory.
void useMemory();

/// Takes back what was told of the toolkit's platform, once there is an application object: programs that are
/// started from here choose for themselves.
void releasePlatform();

} // namespace vantel
