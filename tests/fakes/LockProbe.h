#pragma once

#include <filesystem>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace vantel::testing {

/// Whether another open file could take the lock at once. A file that is not there is made.
inline bool isFree(const std::filesystem::path& lock) {
    const int descriptor = ::open(lock.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
    const bool taken = ::flock(descriptor, LOCK_EX | LOCK_NB) == 0;
    ::close(descriptor);
    return taken;
}

} // namespace vantel::testing
