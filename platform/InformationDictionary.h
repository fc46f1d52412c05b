#pragma once

#include "platform/FileSystem.h"

#include <optional>
#include <string>
#include <string_view>

namespace vantel {

/// Where a program's information dictionary lies: `../share/<program>/Info.json` beside its executable's
/// folder.
FileURL informationDictionaryOf(const FileURL& executable);

/// The text that a dictionary holds under a key. Absent when the file is missing or not a JSON object, or the
/// value is missing or not a text.
std::optional<std::string> informationText(const FileURL& dictionary, std::string_view key);

/// The running program's executable; empty when the system does not tell.
FileURL mainExecutable();

} // namespace vantel
