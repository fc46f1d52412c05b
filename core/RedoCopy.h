#pragma once

#include "core/WidgetJournalEntry.h"
#include "platform/FileSystem.h"

#include <set>

/// The redo copy: what a rewrite of the journal is about to leave there, kept in a file beside it while the
/// journal itself is truncated and written. Whoever holds the journal's lock and finds a copy finishes that
/// rewrite before anything else.
///
/// The copy only ever speaks of the entries it names, the kept and the removed. A line that it does not name
/// was appended by a program that knew nothing of it, and stays. So a copy that comes back after a power cut,
/// though it was removed, takes nothing away: at worst it brings back entries that were handled.
namespace vantel::RedoCopy {

/// What the journal becomes.
struct Plan {
    std::string contents;   ///< all lines that it will hold
    std::set<Uuid> removed; ///< the entries that it held and will hold no more

    bool operator==(const Plan&) const = default;
};

/// The copy's file.
FileURL copyURL(const FileURL& journal);

/// The plan of a rewrite that was begun and not finished. Absent when there is no copy; what is not a regular
/// file is none. A copy is put in place whole; one that a disk damaged is read as far as it goes.
Result<std::optional<Plan>> unfinished(const FileURL& journal, FileSystem& files);

/// The plan, with every line of the journal that it does not name after its own ones.
Plan withLinesBeyond(const Plan& plan, std::string_view journal);

/// Makes the copy, with the journal's own mode, so that it would survive a power cut. Removes what killed
/// processes have left of making one. After a failure there may be a copy: of this plan, or the one before.
Result<void> make(const Plan& plan, const FileURL& journal, FileSystem& files);

/// Removes the copy, durably where the disk can.
Result<void> remove(const FileURL& journal, FileSystem& files);

} // namespace vantel::RedoCopy
