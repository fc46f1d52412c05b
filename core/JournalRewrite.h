#pragma once

#include "core/RedoCopy.h"
#include "platform/FileHandle.h"

namespace vantel {

/// The journal while its lock is held.
struct LockedJournal {
    FileHandle& handle;
    const FileURL& file;
    FileSystem& files;
};

/// Writes at the position, and waits until it would survive a power cut.
Result<void> writeAndSync(FileHandle& handle, std::string_view bytes);

/// Finishes what a rewrite has left undone. Comes first in every operation that changes the journal; the
/// position is then its beginning.
Result<void> finishRewrite(const LockedJournal& journal);

/// All bytes. A rewrite that was left undone is finished; where that fails, they are what it would leave.
Result<std::string> readJournal(const LockedJournal& journal);

/// Rewrites the journal in place: truncates, seeks, writes, behind a redo copy. A crash anywhere leaves the
/// lines `before`, the new ones, or the copy from which the next operation finishes. A failure puts the lines
/// `before` back, byte for byte; where the disk refuses that, a copy of them is left to the next operation,
/// and only where it refuses that too, the copy of the new ones.
Result<void> rewriteJournal(const LockedJournal& journal, const RedoCopy::Plan& plan,
                            std::string_view before);

} // namespace vantel
