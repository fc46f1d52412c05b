#pragma once

#include "platform/FileHandle.h"

namespace vantel {

/// A file held open under its exclusive advisory lock, from `acquire` to the end of the object's life.
/// Unlocking comes before closing, so that a child process which inherited the descriptor keeps no lock.
class LockedFile {
public:
    /// Makes the missing folders (private to the user), opens or creates the file, and waits for the lock
    /// without a time-out. A file that was removed or replaced meanwhile is let go, and the one that has its
    /// name is locked: else two processes would hold two locks of one name. Fails with the folder's own
    /// error, or with `fileWriteUnknown` when the file cannot be opened or locked.
    static Result<LockedFile> acquire(const FileURL& file, FileSystem& files);

    LockedFile(LockedFile&& other) noexcept;
    LockedFile(const LockedFile&) = delete;
    LockedFile& operator=(const LockedFile&) = delete;
    LockedFile& operator=(LockedFile&&) = delete;
    ~LockedFile();

    FileHandle handle() { return {*m_files, m_descriptor}; }

private:
    LockedFile(FileSystem& files, FileSystem::Descriptor descriptor)
        : m_files(&files)
        , m_descriptor(descriptor) {}

    FileSystem* m_files;
    FileSystem::Descriptor m_descriptor;
};

} // namespace vantel
