#pragma once

#include "core/WidgetShared.h"
#include "fuzz/Promise.h"
#include "tests/fakes/MemoryFileSystem.h"

#include <cstdlib>

#include <gtest/gtest.h>

namespace vantel {

/// The shared container lies on no disk, and a misuse of the one in memory ends the fuzzer.
inline void useMemoryContainer() {
    static const bool isUsed = [] {
        GTEST_FLAG_SET(break_on_failure, true);
        return ::setenv("XDG_DATA_HOME", "/memory", 1) == 0;
    }();
    promise(isUsed, "the container lies in memory");
}

inline void expectNothingHeld(const testing::MemoryFileSystem& files) {
    promise(!files.isAnyDescriptorOpen(), "no descriptor remains");
    promise(!files.isAnyLockHeld(), "no lock remains");
}

} // namespace vantel
