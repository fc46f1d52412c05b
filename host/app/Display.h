#pragma once

#include "host/app/BackEnd.h"
#include "host/app/Options.h"

#include <string>

namespace vantel {

/// What this session offers. Asks its compositor; and its X server only where there is no choice without it,
/// because many compositors start theirs when the first program asks for it.
DisplayFacts displayFacts(WantedBackEnd wanted);

/// Writes into the environment what the choice needs there, which for the X server is nothing, before there
/// is an application object. The toolkit's name of the choice; empty where the user has told the toolkit.
std::string preparePlatform(BackEnd backEnd);

/// The same for pictures, which are drawn into memory.
std::string prepareMemory();

/// Lets go of the X server that was asked, once there is an application object.
void releaseDisplay();

} // namespace vantel
