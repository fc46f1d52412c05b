#pragma once

#include "host/doctor/ContainerFindings.h"
#include "host/doctor/DesktopFindings.h"
#include "host/doctor/ServiceFindings.h"

namespace vantel {

// What each of these finds is found by asking others, who may never answer: call them on threads that nobody
// has to wait for. They change nothing. All read the environment.

/// Absent where no X server answers.
std::optional<SessionOnX11> lookAtX11();

SessionBusFacts lookAtSessionBus();
SystemBusFacts lookAtSystemBus();
LinkFacts lookAtApplications();

/// Reads the files without their locks; the snapshot is replaced whole, so a reader sees one.
StorageFacts lookAtStorage();

} // namespace vantel
