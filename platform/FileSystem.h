#pragma once

#include "platform/Error.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vantel {

/// Where a file lies: an absolute path.
using FileURL = std::filesystem::path;

/// What a file is, as far as the store cares.
struct FileStatus {
    enum class Kind { regular, directory, other };

    Kind kind;
    unsigned mode; ///< the permission bits, without the kind
    std::uint64_t size;

    bool operator==(const FileStatus&) const = default;
};

/// How a file is opened.
enum class OpenMode {
    lock,     ///< read and write, created with 0644 less the umask, never truncated; closed on exec by a
              ///< second call, since the flags of the first are part of the protocol
    read,     ///< read only, never blocks on a FIFO, closed on exec
    writeNew, ///< write only, fails when the name is taken or is a link, 0644 less the umask, closed on exec
    readDirectory ///< a directory, to be synced
};

/// The system calls that the store and the journal are made of, one function each, nothing retried or hidden,
/// so that a fake can fail, tear or lose any of them. All block; all report the system's error number.
class FileSystem {
public:
    using Descriptor = int;

    virtual ~FileSystem() = default;

    /// Makes the directory and its missing parents, each private to the user (0700), and syncs the names of
    /// the new ones as far as the file system can. An existing one is fine.
    virtual Result<void> createDirectories(const FileURL& directory) = 0;

    /// The names in the directory, without "." and "..", in any order.
    virtual Result<std::vector<std::string>> names(const FileURL& directory) = 0;
    virtual Result<Descriptor> open(const FileURL& file, OpenMode mode) = 0;
    virtual Result<void> close(Descriptor descriptor) = 0;

    /// Waits, without a time-out, for the exclusive advisory lock on the whole file.
    virtual Result<void> lock(Descriptor descriptor) = 0;
    virtual Result<void> unlock(Descriptor descriptor) = 0;

    /// Follows links. Fails with ENOENT when there is nothing.
    virtual Result<FileStatus> status(const FileURL& file) = 0;
    virtual Result<FileStatus> status(Descriptor descriptor) = 0;

    /// Whether the name, through links, leads to the open file. False when there is nothing of that name.
    virtual Result<bool> isNamed(Descriptor descriptor, const FileURL& file) = 0;

    /// May read or write less than asked; a read of zero bytes is the end.
    virtual Result<std::size_t> read(Descriptor descriptor, std::span<char> buffer) = 0;
    virtual Result<std::size_t> readAt(Descriptor descriptor, std::uint64_t offset,
                                       std::span<char> buffer) = 0;
    virtual Result<std::size_t> write(Descriptor descriptor, std::string_view bytes) = 0;
    virtual Result<std::uint64_t> seekToEnd(Descriptor descriptor) = 0;
    virtual Result<void> seek(Descriptor descriptor, std::uint64_t offset) = 0;
    virtual Result<void> truncate(Descriptor descriptor, std::uint64_t length) = 0;

    /// Waits until the file (`sync`), or its bytes and length (`syncData`), would survive a power cut.
    virtual Result<void> sync(Descriptor descriptor) = 0;
    virtual Result<void> syncData(Descriptor descriptor) = 0;
    virtual Result<void> changeMode(Descriptor descriptor, unsigned mode) = 0;

    virtual Result<void> rename(const FileURL& from, const FileURL& to) = 0;
    virtual Result<void> remove(const FileURL& file) = 0;

    /// What a symbolic link says, which may be relative to its folder. Fails with EINVAL where the name is no
    /// link, and with ENOENT when there is nothing.
    virtual Result<FileURL> linkTarget(const FileURL& link) = 0;
};

/// The operating system's files. Safe to use from any thread.
FileSystem& systemFileSystem();

} // namespace vantel
