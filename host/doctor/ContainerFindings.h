#pragma once

#include "host/doctor/Finding.h"
#include "host/doctor/LockHolder.h"
#include "platform/Error.h"
#include "platform/FileSystem.h"
#include "platform/Formats.h"
#include "platform/Instant.h"

#include <cstdint>
#include <optional>
#include <variant>

namespace vantel {

/// A file or folder, and what the user may do with it.
struct FileFacts {
    enum class Kind { missing, regular, directory, other, unknown };

    FileURL path;
    Kind kind = Kind::missing;
    unsigned mode = 0; ///< the permission bits
    std::uint32_t owner = 0;
    bool isMine = true;
    bool isReadable = true;
    bool isWritable = true;
};

/// What a snapshot says of itself.
struct SnapshotHead {
    std::int64_t version = 0;
    Instant generatedAt{};
};

/// The folder that the companion and the widgets share. Facts of files that are missing mean nothing.
struct ContainerFacts {
    FileFacts folder = {};
    bool isReachable = false; ///< by other users
    FileFacts snapshot = {};
    FileFacts snapshotLock = {};
    FileFacts journal = {};
    std::optional<Result<SnapshotHead>> head = {}; ///< absent where there are no bytes to look at
    LockFacts snapshotLockState = {};
    LockFacts journalLockState = {};
};

/// The file that keeps where the widgets stand.
struct PlacementsFacts {
    FileURL file;
    std::optional<Result<std::size_t>> count = {}; ///< of placements; absent where there is no file
};

/// What lies on the disk. A part is absent where the environment names no folder for it.
struct StorageFacts {
    Instant now{};
    std::optional<ContainerFacts> container = {};
    std::optional<PlacementsFacts> placements = {};
};

Findings storageFindings(const StorageFacts& facts, const Formats& formats);

/// Where the disk does not answer in time.
Findings silentStorage(const Formats& formats);

} // namespace vantel
