#pragma once

#include "cli/Command.h"
#include "core/WidgetSnapshot.h"

#include <memory>

namespace vantel {

/// A snapshot, or null when there is none.
using SharedSnapshot = std::shared_ptr<const WidgetSnapshot>;

/// The snapshot that the command line asks for: of a file, the sample, else the container's. A document that
/// is not valid counts as no snapshot, as it does in the container, and is told on standard error; only a
/// file that cannot be read is a failure.
std::expected<SharedSnapshot, CommandFailure> requestedSnapshot(const Arguments& arguments,
                                                                const Surroundings& surroundings);

/// All bytes of a file of any kind, or of standard input for "-".
std::expected<std::string, CommandFailure> readInput(const std::string& file);

/// The file's document as a record, whatever its version.
std::expected<WidgetSnapshot, CommandFailure> decodeInput(const std::string& file);

} // namespace vantel
