#pragma once

#include "host/schedule/Worker.h"
#include "platform/Formats.h"

namespace vantel {

/// Begins, on another thread, to read the settings and lists of the machine's fonts, which the toolkit would
/// read in the midst of its own start. Nobody may write the environment before the worker is drained: their
/// places are read from it. So nothing is begun where the toolkit will take from it what a launcher left.
void beginFonts(Worker& worker);

/// Begins, on another thread, what the first picture needs and takes longest to make ready: the list of the
/// machine's fonts and the forms of dates. Whoever needs them earlier waits for the rest.
///
/// Needs an application object. `formats` is safe to use from any thread and outlives the worker's jobs.
void beginFirstPicture(Worker& worker, const Formats& formats);

} // namespace vantel
