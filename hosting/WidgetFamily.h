#pragma once

#include <optional>
#include <string_view>

namespace vantel {

/// The sizes in which a widget can stand on a desktop.
enum class WidgetFamily { systemSmall, systemMedium, systemLarge };

/// "systemSmall" and so on.
std::string_view name(WidgetFamily family);

/// The size as people say it: "small".
std::string_view shortName(WidgetFamily family);

/// Reads either form, exactly.
std::optional<WidgetFamily> parseWidgetFamily(std::string_view text);

} // namespace vantel
