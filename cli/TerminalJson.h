#pragma once

#include <string>
#include <string_view>

namespace vantel {

/// The same JSON document without a character that a terminal could obey: DEL, the controls beyond ASCII, and
/// what turns the reading direction around or ends a line are written as escapes. (The other controls are
/// escaped in any JSON.)
std::string terminalJson(std::string_view json);

} // namespace vantel
