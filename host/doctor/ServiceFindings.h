#pragma once

#include "host/doctor/Finding.h"
#include "host/doctor/LockHolder.h"
#include "platform/Formats.h"

#include <cstdint>
#include <optional>

namespace vantel {

/// Something on a bus that has a version.
struct ServiceAnswer {
    enum class Kind { missing, silent, answering };

    Kind kind = Kind::missing;
    std::uint32_t version = 0; ///< of one that answers
};

/// The user's session bus.
struct SessionBusFacts {
    enum class Kind { none, silent, answering };

    Kind kind = Kind::none;
    ServiceAnswer settings = {};
    ServiceAnswer openLinks = {};
    std::optional<ProcessFacts> host = {}; ///< who owns the name of the widgets
};

/// The bus of the system.
struct SystemBusFacts {
    bool hasLogin = false;    ///< tells of sleep
    bool hasTimeDate = false; ///< tells of the time zone
};

/// What is installed to open the links of the widgets.
struct LinkFacts {
    bool hasHandler = false; ///< an application for their scheme
    bool hasProgram = false; ///< xdg-open
};

/// What the widgets ask others for.
struct ServiceFacts {
    SessionBusFacts session = {};
    SystemBusFacts system = {};
    LinkFacts links = {};
};

Findings serviceFindings(const ServiceFacts& facts, const Formats& formats);

} // namespace vantel
