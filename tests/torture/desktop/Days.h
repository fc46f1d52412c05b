#pragma once

#include "core/WidgetSnapshot.h"

#include <filesystem>
#include <vector>

namespace vantel::torture {

/// Fifty days of a user: those of a folder, and variations of them from which records are missing.
std::vector<WidgetSnapshot> fiftyDays(const std::filesystem::path& folder);

} // namespace vantel::torture
