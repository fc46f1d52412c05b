#pragma once

#include "core/WidgetJournalEntry.h"
#include "platform/FileSystem.h"

#include <set>
#include <vector>

/// What the user did in the widgets and the companion application has not handled yet: one line of JSON each,
/// in the order of the clicks, in the shared container's journal file.
///
/// The file is its own lock. Every operation holds it from its first read to its last write and waits for it
/// without a time-out, then finishes what a rewrite has left undone when its process was killed or the power
/// went. Lines that do not decode are passed over, and dropped by the next `remove`.
namespace vantel::WidgetJournal {

/// Adds one line. Success means that the line would survive a power cut; failure means that there is no line,
/// unless the disk refuses even to take it back.
Result<void> append(const WidgetJournalEntry& entry, FileSystem& files = systemFileSystem());

/// All entries, in file order. Changes nothing but an unfinished rewrite, which it finishes if it can.
Result<std::vector<WidgetJournalEntry>> pending(FileSystem& files = systemFileSystem());

/// Rewrites the file, in place, without the entries of those ids. No crash loses an entry of another id. A
/// failure puts every line back, or has the next operation do so; on a disk that takes nothing any more, the
/// next operation may finish the removal instead. Without ids, or without a container, nothing happens.
Result<void> remove(const std::set<Uuid>& ids, FileSystem& files = systemFileSystem());

/// Empties the file. A failure puts every line back, as that of `remove` does. What is too long to be read,
/// or cannot be, is emptied all the same.
Result<void> removeAll(FileSystem& files = systemFileSystem());

} // namespace vantel::WidgetJournal
