#pragma once

#include "core/WidgetSnapshot.h"
#include "platform/FileSystem.h"

namespace vantel {

/// One snapshot file and the lock file that guards it. Keeps nothing open and nothing in memory between
/// calls, so copies are free and any process may hold another one of the same files.
///
/// Every operation takes the exclusive lock for its whole length and waits for it without a time-out. A
/// snapshot counts as present only if its file can be read whole, decodes, and has the current version.
struct WidgetSnapshotStore {
    FileURL snapshotURL;
    FileURL lockURL;

    bool operator==(const WidgetSnapshotStore&) const = default;

    /// The valid snapshot, or absent. Never fails: whatever goes wrong, there is no snapshot.
    std::optional<WidgetSnapshot> load(FileSystem& files = systemFileSystem()) const;

    /// Replaces the snapshot file, whole: a reader, or the disk after a power cut, has the old one or the new
    /// one. On failure the old file stands. The folder is synchronized too, so that it should be the new one,
    /// but a disk that fails to is no failure: readers have the new file by then.
    Result<void> write(const WidgetSnapshot& snapshot, FileSystem& files = systemFileSystem()) const;

    /// Deletes the snapshot file if it exists.
    Result<void> remove(FileSystem& files = systemFileSystem()) const;

    /// Deletes the snapshot if its account is exactly the given one, or if it has none and
    /// `allowingLegacyUnbound`. Whether it did; false when there is no valid snapshot.
    Result<bool> remove(std::string_view matchingAccountID, bool allowingLegacyUnbound,
                        FileSystem& files = systemFileSystem()) const;

    /// Stamps every task of that id as completed and rewrites the snapshot, if its account is exactly the
    /// given one. True means that the snapshot was rewritten, not that the task was in it.
    Result<bool> applyCompletion(std::string_view of, Instant at, std::string_view matchingAccountID,
                                 FileSystem& files = systemFileSystem()) const;

private:
    std::optional<WidgetSnapshot> loadUnlocked(FileSystem& files) const;
    Result<void> writeUnlocked(const WidgetSnapshot& snapshot, FileSystem& files) const;
    Result<void> removeUnlocked(FileSystem& files) const;
};

} // namespace vantel
