#pragma once

#include <expected>
#include <optional>
#include <string>

namespace vantel {

/// Asks the running widget host, over the session bus, to reload the timelines of one kind, or of all. Starts
/// no host. Blocks until the host has answered. The error is a sentence part for people.
std::expected<void, std::string> requestReload(const std::optional<std::string>& kind);

} // namespace vantel
