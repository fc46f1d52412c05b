#pragma once

#include <stdexcept>
#include <string>

namespace vantel {

/// A broken assumption that no real data can cause, such as an overflowing count.
/// It travels as an exception, the only one of this system, so that a host can contain it at the boundary of
/// one widget and a command can end with a message. Nothing else may throw across a room.
class FatalError final : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Raises a FatalError. `reason` is a sentence for people.
[[noreturn]] inline void fatalError(const std::string& reason) {
    throw FatalError(reason);
}

} // namespace vantel
