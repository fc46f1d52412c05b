#pragma once

#include "platform/FileSystem.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace vantel {

/// A process that the system runs, or that it ran when it took a lock.
struct ProcessFacts {
    std::int64_t number = 0;
    std::string name = {}; ///< of its command; empty when it cannot be seen
    bool isStopped = false;

    bool operator==(const ProcessFacts&) const = default;
};

/// What the system shows of a process at the moment.
ProcessFacts processFacts(std::int64_t number);

/// What `/proc/PID/stat` says: "1234 (name of the command) T 1 …", where the name may hold anything.
ProcessFacts parseProcess(std::int64_t number, std::string_view stat);

/// Who holds a lock at the moment.
struct LockFacts {
    enum class Kind { free, held, unknown };

    Kind kind = Kind::unknown;
    std::optional<ProcessFacts> holder = {}; ///< absent when it cannot be seen
};

/// Looks at the lock of a file that is there, without waiting: by taking it for some microseconds as one of
/// any number of readers.
LockFacts lockFacts(const FileURL& file);

/// The number of the process that holds a lock on a file, by the list in `/proc/locks`; those that wait for
/// it do not count. Where no line is about the file's device, one that is about its number is taken: some
/// file systems show another device there.
std::optional<std::int64_t> lockHolder(std::string_view list, std::uint64_t device, std::uint64_t inode);

} // namespace vantel
