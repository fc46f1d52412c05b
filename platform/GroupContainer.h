#pragma once

#include "platform/FileSystem.h"

#include <optional>
#include <string_view>

namespace vantel {

/// The folder that programs of one group share: `$XDG_DATA_HOME/group-containers/<identifier>`, under
/// `~/.local/share` when the variable is unset, empty or relative. Reads the environment on each call; the
/// folder need not exist. Absent when there is no absolute base, or the identifier is empty, "." or "..", or
/// holds `/` or a NUL.
std::optional<FileURL> groupContainer(std::string_view identifier);

} // namespace vantel
