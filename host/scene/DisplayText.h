#pragma once

#include <QString>
#include <string_view>

namespace vantel::scene {

/// A text from anywhere as it is drawn: plain, on one line, and of a sane length (500 UTF-16 units, cut
/// between characters). Control characters become blanks, direction overrides are dropped, a character keeps
/// four combining marks at most, and bytes that are not UTF-8 show as U+FFFD.
QString displayText(std::string_view text);

} // namespace vantel::scene
