#pragma once

#include <functional>
#include <string>
#include <vector>

namespace vantel::torture {

/// What becomes of one system call of a process that is watched.
struct Fate {
    enum class Kind { pass, fail, kill, tearAndKill };

    Kind kind = Kind::pass;
    int number = 0;         ///< of `fail`: the error
    std::size_t length = 0; ///< of `tearAndKill`: how much of a write is done before
};

/// One system call, as it is about to happen.
struct SystemCall {
    long number;
    std::size_t length; ///< the third argument, which of `write` is the length
};

/// "openat", or "call 123" for one without a name here.
std::string name(long systemCall);

/// How a process ended that was watched.
struct Watched {
    std::vector<SystemCall> calls; ///< between the two marks
    int status = 0;                ///< the exit status, or 128 and the number of the signal
};

/// Whether processes can be watched on this machine; else why not.
std::string whyNotWatchable();

/// Runs `body` in a child process, and lets `decide` (given the position of a call, from 0, and the call) say
/// what becomes of each system call that it makes. The child is the caller's image: what it changes in its
/// memory is lost. What only manages memory or ends the process always passes, and is not counted. A `close`
/// that fails has closed all the same, as on Linux.
Watched watch(const std::function<void()>& body,
              const std::function<Fate(std::size_t, const SystemCall&)>& decide);

/// Stop and go on watching, for what `body` does only to report.
void pauseWatching();

} // namespace vantel::torture
