#pragma once

#include "platform/FileSystem.h"

#include <cstdlib>

#include <benchmark/benchmark.h>

namespace vantel::bench {

/// An empty folder on disk, beside the build: a folder in memory would hide what syncing costs.
inline FileURL emptyScratch(const char* name) {
    FileURL folder = FileURL(VANTEL_BENCH_SCRATCH) / name;
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    return folder;
}

/// How a benchmark runs that waits for a disk or for another process: these have moods that last for tenths
/// of a second, so many short turns beside the reference say more than a few long ones.
inline void inManyShortTurns(benchmark::internal::Benchmark* benchmark) {
    benchmark->UseRealTime()->Repetitions(75)->MinTime(0.01);
}

/// Ends the run when a call fails that a benchmark leans on.
inline void require(bool condition) {
    if (!condition)
        std::abort();
}

} // namespace vantel::bench
