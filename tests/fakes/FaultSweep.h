#pragma once

#include "tests/fakes/MemoryFileSystem.h"

#include <algorithm>
#include <cerrno>
#include <string>

#include <gtest/gtest.h>

namespace vantel::testing {

inline std::string lastCallOf(const FaultPlan& faults, std::size_t nth) {
    const auto& calls = faults.calls();
    return "call " + std::to_string(nth) +
           (nth <= calls.size() ? ", " + std::string(name(calls[nth - 1])) : "");
}

/// Runs `operate` (a function of FileSystem& that gives a Result) on a fresh copy of the disk again and
/// again: first its first call fails, then its second, and so on until it runs untouched. After each run
/// nothing may be open or locked, and `judge` is handed the file system and whether the operation reported
/// success.
template <typename Operate, typename Judge>
void failEachCall(const MemoryDisk& disk, int number, Lasting lasting, Operate operate, Judge judge) {
    for (std::size_t nth = 1;; ++nth) {
        MemoryFileSystem files(disk);
        files.faults().fail(static_cast<int>(nth), number, lasting);
        const bool succeeded = operate(files).has_value();
        SCOPED_TRACE(lastCallOf(files.faults(), nth));
        EXPECT_FALSE(files.isAnyDescriptorOpen());
        EXPECT_FALSE(files.isAnyLockHeld());
        judge(files, succeeded);
        if (files.faults().calls().size() >= nth)
            continue;
        EXPECT_TRUE(succeeded) << "without any fault";
        return;
    }
}

/// Whether a disk is the same after the call as before it, and so is all that a power cut could leave of it.
inline bool onlyLooks(FileOperation operation) {
    using enum FileOperation;
    const auto looking = {names, close,  lock,      unlock, status,    isNamed,
                          read,  readAt, seekToEnd, seek,   linkTarget};
    return std::ranges::find(looking, operation) != looking.end();
}

/// Cuts the power after none of `operate`'s calls, after the first, and so on to the last. `judge` is handed
/// every disk that may be left, and whether the operation had reported success by then. Calls that only look
/// are passed over.
template <typename Operate, typename Judge>
void cutPowerAfterEachCall(const MemoryDisk& disk, Operate operate, Judge judge) {
    for (std::size_t done = 0;; ++done) {
        MemoryFileSystem files(disk);
        files.faults().fail(static_cast<int>(done) + 1, EIO, Lasting::fromThenOn);
        const bool succeeded = operate(files).has_value();
        const bool returned = files.faults().calls().size() <= done;
        if (done > 0 && !returned && onlyLooks(files.faults().calls()[done - 1]))
            continue;
        SCOPED_TRACE("no power from " + lastCallOf(files.faults(), done + 1));
        for (const MemoryDisk& left : files.disk().afterPowerCut())
            judge(left, returned && succeeded);
        if (returned)
            return;
    }
}

} // namespace vantel::testing
