#pragma once

#include "platform/FileSystem.h"

#include <optional>

namespace vantel {

/// The folders of the user that the XDG base-directory rules name. Each is absent when there is no absolute
/// path for it: relative values are ignored, as the rules say. They read the environment on each call.

/// `$XDG_DATA_HOME`, else `~/.local/share`.
std::optional<FileURL> dataHome();

/// `$XDG_STATE_HOME`, else `~/.local/state`.
std::optional<FileURL> stateHome();

} // namespace vantel
