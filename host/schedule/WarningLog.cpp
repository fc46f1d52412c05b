#include "host/schedule/WarningLog.h"

#include "platform/VisibleText.h"

#include <QtGlobal>

namespace vantel {

void WarningLog::warn(const std::string& text) {
    constexpr std::size_t mostWarnings = 100;
    if (m_written.size() < mostWarnings && m_written.insert(text).second)
        qWarning("%s", visibleText(text).c_str());
}

} // namespace vantel
