#pragma once

#include "host/schedule/Worker.h"
#include "platform/Formats.h"

namespace vantel {

/// Begins, on another thread, what the first picture needs and takes longest to make ready: the list of the
/// machine's fonts and the forms of dates. Whoever needs them earlier waits for the rest.
///
/// Needs an application object. `formats` is safe to use from any thread and outlives the worker's jobs.
void beginFirstPicture(Worker& worker, const Formats& formats);

} // namespace vantel
