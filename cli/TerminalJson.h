#pragma once

#include <string>
#include <string_view>

namespace vantel {

/// The same JSON document, in which DEL and the characters beyond ASCII that may be obeyed are written as
/// escapes. (The other controls are escaped in any JSON.)
std::string terminalJson(std::string_view json);

} // namespace vantel
