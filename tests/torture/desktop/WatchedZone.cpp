#include "tests/torture/desktop/WatchedZone.h"

#include <QApplication>
#include <cstdlib>
#include <fstream>

namespace vantel::torture {

WatchedZone::WatchedZone() {
    QObject::connect(&m_watch, &DayWatch::zoneChanged, &m_watch, [this] { m_isNews = true; });
}

/// The file is replaced as the system does it: at no moment is it missing.
void WatchedZone::change(const char* zone) {
    ::setenv("TZ", zone, 1);
    m_isNews = false;
    std::ofstream(m_folder / "next") << zone;
    std::filesystem::rename(m_folder / "next", m_folder / "zone");
    while (!m_isNews)
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

} // namespace vantel::torture
