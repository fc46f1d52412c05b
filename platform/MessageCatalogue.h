#pragma once

namespace vantel {

/// Makes the process speak the user's language: takes the message locale from the environment, and the
/// catalogue from `../share/locale` beside the program's folder. Called once, when a program starts.
void useMessageCatalogue();

} // namespace vantel
