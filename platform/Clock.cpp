#include "platform/Clock.h"

namespace vantel {

Instant SystemClock::now() const {
    const auto sinceUnixEpoch = std::chrono::system_clock::now().time_since_epoch();
    return instantFromReference(std::chrono::duration<double>(sinceUnixEpoch).count() - referenceInUnixTime);
}

} // namespace vantel
