#pragma once

#include <string>
#include <string_view>

namespace vantel {

/// Whether a character is more than seen, on a terminal or by whoever reads there: controls, and what turns
/// the reading direction around or ends a line.
bool mayBeObeyed(char32_t character);

/// A text from anywhere, made safe to show on one line of a terminal or a log: it can move no cursor, hide
/// nothing and turn no reading direction around.
///
/// Control characters become their pictures (ESC "␛", line feed "␊") or U+FFFD, as do direction marks, line
/// and paragraph separators, and bytes that are not UTF-8. Of marks that take no room only a few stay on each
/// character, and those that have no character before them are left out.
std::string visibleText(std::string_view text);

} // namespace vantel
