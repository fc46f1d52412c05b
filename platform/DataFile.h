#pragma once

#include "platform/FileSystem.h"

#include <optional>
#include <string>

namespace vantel {

/// All bytes of a regular file. A FIFO, device or folder in its place fails at once instead of blocking.
Result<std::string> readFile(const FileURL& file, FileSystem& files);

/// What lies there, through links; absent when nothing can be reached under that name. Fails when that cannot
/// be told.
Result<std::optional<FileStatus>> statusIfPresent(const FileURL& file, FileSystem& files);

/// Puts `bytes` in the file's place so that every reader, and the disk after a power cut, has either the old
/// file or the new one, whole. The new file keeps the old one's mode (0644 less the umask for a first file)
/// and has it before it has the bytes; a symbolic link is replaced, not followed. On failure the old file
/// stands and no temporary is left. Once the new file is in place a folder that does not synchronize is no
/// failure: the disk may then have the old file after a power cut, but no reader has it any more.
Result<void> writeFileAtomically(const FileURL& file, std::string_view bytes, FileSystem& files);

/// As writeFileAtomically, but the new file has the mode of `like`, and success means that its name, too,
/// would survive a power cut. After a failure to make the name durable, the new file stands.
Result<void> writeFileDurably(const FileURL& file, std::string_view bytes, const FileURL& like,
                              FileSystem& files);

/// Removes what killed processes have left of replacing the file, as far as it can. Only for who holds a lock
/// under which alone the file is replaced: else it takes away what others are about to put in place, and they
/// fail.
void sweepTemporaries(const FileURL& file, FileSystem& files);

/// Makes the names in a folder survive a power cut. A file system that cannot sync a folder at all has done
/// what it can.
Result<void> syncDirectory(const FileURL& directory, FileSystem& files);

} // namespace vantel
