#pragma once

#include "platform/FileSystem.h"

#include <cstdlib>

namespace vantel::bench {

/// An empty folder on disk, beside the build: a folder in memory would hide what syncing costs.
inline FileURL emptyScratch(const char* name) {
    FileURL folder = FileURL(VANTEL_BENCH_SCRATCH) / name;
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    return folder;
}

/// Ends the run when a call fails that a benchmark leans on.
inline void require(bool condition) {
    if (!condition)
        std::abort();
}

} // namespace vantel::bench
