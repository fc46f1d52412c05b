#pragma once

#include <string>

namespace vantel::torture {

/// Uses the container at $XDG_DATA_HOME for so many rounds: clicks, stamps, publishing, draining. Says each
/// step when it begins and when it was acknowledged, with the number that the file of eight bytes holds then.
int useUntilPowerCut(const std::string& positionFile, int rounds);

/// Says what is found there at the next start, uses it, and says what that leaves.
int lookAfterPowerCut();

} // namespace vantel::torture
