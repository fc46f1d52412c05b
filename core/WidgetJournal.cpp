#include "core/WidgetJournal.h"

#include "core/JournalLines.h"
#include "core/JournalRewrite.h"
#include "core/WidgetShared.h"
#include "platform/DataFile.h"

#include <cerrno>

namespace vantel::WidgetJournal {

using WidgetShared::journalURL;
using WidgetShared::withLockedFile;

namespace {

/// A torn last line has no line feed; one before the new line keeps the two from gluing together.
Result<bool> endsTorn(FileHandle& handle, std::uint64_t length) {
    if (length == 0)
        return false;
    const auto last = handle.byteAt(length - 1);
    if (!last)
        return std::unexpected(last.error());
    return *last != '\n';
}

Result<void> appendLine(const LockedJournal& journal, const std::string& line) {
    const auto length = journal.handle.seekToEnd();
    if (!length)
        return std::unexpected(length.error());
    if (*length + line.size() > FileHandle::longestRead) // What cannot be read again is no entry.
        return std::unexpected(SystemError{"write", journal.file.string(), EFBIG});
    if (*length == 0) // The file may be new: no line without a durable name.
        if (auto named = syncDirectory(journal.file.parent_path(), journal.files); !named)
            return named;
    const auto torn = endsTorn(journal.handle, *length);
    if (!torn)
        return std::unexpected(torn.error());
    const auto written = writeAndSync(journal.handle, *torn ? '\n' + line : line);
    if (!written)
        std::ignore = journal.handle.truncate(*length);
    return written;
}

/// What cannot be read could not be put back either: it goes without that.
Result<void> makeEmpty(const LockedJournal& journal) {
    if (const auto before = journal.handle.readToEnd())
        return rewriteJournal(journal, {}, *before);
    if (auto truncated = journal.handle.truncate(0); !truncated)
        return truncated;
    return journal.handle.synchronizeData();
}

Result<void> rewriteWithout(const std::set<Uuid>& ids, const LockedJournal& journal) {
    if (auto finished = finishRewrite(journal); !finished)
        return finished;
    const auto bytes = journal.handle.readToEnd();
    if (!bytes)
        return std::unexpected(bytes.error());
    const auto entries = decodeJournal(*bytes);
    auto contents = encodeJournal(entries, ids);
    if (!contents)
        return std::unexpected(contents.error());
    RedoCopy::Plan plan{std::move(*contents), {}};
    for (const WidgetJournalEntry& entry : entries)
        if (ids.contains(entry.id))
            plan.removed.insert(entry.id);
    return rewriteJournal(journal, plan, *bytes);
}

} // namespace

Result<void> append(const WidgetJournalEntry& entry, FileSystem& files) {
    const auto journal = journalURL();
    if (!journal)
        return std::unexpected(fileWriteUnknown());
    const auto encoded = encodeJournalEntry(entry);
    if (!encoded)
        return std::unexpected(encoded.error());
    const std::string line = *encoded + '\n';
    const auto appending = [&](FileHandle& handle) {
        const LockedJournal locked{handle, *journal, files};
        const auto finished = finishRewrite(locked);
        return finished ? appendLine(locked, line) : finished;
    };
    return withLockedFile(*journal, appending, files);
}

Result<std::vector<WidgetJournalEntry>> pending(FileSystem& files) {
    const auto journal = journalURL();
    if (!journal)
        return std::unexpected(fileReadUnknown());
    const auto reading = [&](FileHandle& handle) { return readJournal({handle, *journal, files}); };
    const auto bytes = withLockedFile(*journal, reading, files);
    if (!bytes)
        return std::unexpected(bytes.error());
    return decodeJournal(*bytes);
}

Result<void> remove(const std::set<Uuid>& ids, FileSystem& files) {
    const auto journal = journalURL();
    if (!journal || ids.empty())
        return {};
    const auto removing = [&](FileHandle& handle) { return rewriteWithout(ids, {handle, *journal, files}); };
    return withLockedFile(*journal, removing, files);
}

Result<void> removeAll(FileSystem& files) {
    const auto journal = journalURL();
    if (!journal)
        return std::unexpected(fileWriteUnknown());
    const auto emptying = [&](FileHandle& handle) {
        const LockedJournal locked{handle, *journal, files};
        const auto finished = finishRewrite(locked);
        return finished ? makeEmpty(locked) : finished;
    };
    return withLockedFile(*journal, emptying, files);
}

} // namespace vantel::WidgetJournal
