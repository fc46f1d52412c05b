#pragma once

#include "platform/FileSystem.h"

#include <string>

namespace vantel {

/// An open file, borrowed: the handle never closes its descriptor and must not outlive it.
/// Calls block; a failure is the system's error, and the position is then unspecified.
class FileHandle {
public:
    FileHandle(FileSystem& files, FileSystem::Descriptor descriptor)
        : m_files(files)
        , m_descriptor(descriptor) {}

    /// Moves to the end and returns its offset, which is the file's length in bytes.
    Result<std::uint64_t> seekToEnd() { return m_files.seekToEnd(m_descriptor); }
    Result<void> seek(std::uint64_t offset) { return m_files.seek(m_descriptor, offset); }

    /// No more is read of any file. A day's snapshot has some kilobytes; this is what a year's would have.
    static constexpr std::size_t longestRead = std::size_t{64} << 20U;

    /// Everything from the position to the end. Fails for what is not a regular file, whose end may never
    /// come, and for more than `longestRead` bytes.
    Result<std::string> readToEnd();

    /// The byte at `offset`, or 0 past the end. Leaves the position alone.
    Result<char> byteAt(std::uint64_t offset);

    /// Writes all of `contents` at the position. After a failure a part may have been written.
    Result<void> write(std::string_view contents);
    Result<void> truncate(std::uint64_t length) { return m_files.truncate(m_descriptor, length); }

    /// Returns once the file's bytes and length would survive a power cut.
    Result<void> synchronizeData() { return m_files.syncData(m_descriptor); }
    Result<void> synchronize() { return m_files.sync(m_descriptor); }
    Result<void> changeMode(unsigned mode) { return m_files.changeMode(m_descriptor, mode); }

private:
    /// To the end, of a file that seems to have about so many bytes.
    Result<std::string> readFrom(std::size_t expected);

    FileSystem& m_files;
    FileSystem::Descriptor m_descriptor;
};

} // namespace vantel
