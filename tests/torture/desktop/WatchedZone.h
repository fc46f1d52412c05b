#pragma once

#include "host/bus/DayWatch.h"
#include "tests/fakes/ScratchFolder.h"

namespace vantel::torture {

/// The zone of the machine as a user changes it, and the program's own watch on its file.
class WatchedZone final {
public:
    WatchedZone();

    /// Makes it another zone. Returns when the watch has told of it, and never if it does not.
    void change(const char* zone);

private:
    testing::ScratchFolder m_folder;
    DayWatch m_watch{m_folder / "zone"};
    bool m_isNews = false;
};

} // namespace vantel::torture
