#pragma once

#include <set>
#include <string>

namespace vantel {

/// Writes warnings to the program's log, each text once. After a hundred different ones it is silent, so that
/// hostile data fills no log.
class WarningLog {
public:
    void warn(const std::string& text);

private:
    std::set<std::string> m_written;
};

} // namespace vantel
