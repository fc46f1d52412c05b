#pragma once

#include "host/app/BackEnd.h"
#include "host/app/Options.h"

#include <expected>

namespace vantel {

/// What this session offers. Asks its compositor; and its X server only where there is no choice without it,
/// because many compositors start theirs when the first program asks for it.
DisplayFacts displayFacts(WantedBackEnd wanted);

/// Tells the toolkit what to draw on, by its environment variables, before there is an application object.
void useBackEnd(BackEnd backEnd);

/// Makes the toolkit draw into memory.
void useMemory();

/// Takes back what was told of the toolkit's platform, once there is an application object: programs that are
/// started from here choose for themselves. Lets go of the X server that was asked.
void releasePlatform();

} // namespace vantel
