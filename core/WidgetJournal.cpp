#include "core/WidgetJournal.h"

#include "core/WidgetShared.h"
#include "platform/DataFile.h"

namespace vantel::WidgetJournal {

using WidgetShared::journalURL;
using WidgetShared::withLockedFile;

namespace {

std::vector<WidgetJournalEntry> decode(std::string_view bytes) {
    std::vector<WidgetJournalEntry> entries;
    while (!bytes.empty()) {
        const std::string_view line = bytes.substr(0, bytes.find('\n'));
        bytes.remove_prefix(std::min(line.size() + 1, bytes.size()));
        if (line.empty())
            continue;
        if (auto entry = decodeJournalEntry(line))
            entries.push_back(std::move(*entry));
    }
    return entries;
}

Result<std::string> encodeWithout(const std::set<Uuid>& ids, const std::vector<WidgetJournalEntry>& entries) {
    std::string contents;
    for (const WidgetJournalEntry& entry : entries) {
        if (ids.contains(entry.id))
            continue;
        const auto line = encodeJournalEntry(entry);
        if (!line)
            return std::unexpected(line.error());
        contents += *line + '\n';
    }
    return contents;
}

/// A torn last line has no line feed; one before the new line keeps the two from gluing together.
Result<bool> endsTorn(FileHandle& handle, std::uint64_t length) {
    if (length == 0)
        return false;
    const auto last = handle.byteAt(length - 1);
    if (!last)
        return std::unexpected(last.error());
    return *last != '\n';
}

Result<void> writeAndSync(FileHandle& handle, std::string_view bytes) {
    if (auto written = handle.write(bytes); !written)
        return written;
    return handle.synchronizeData();
}

Result<void> appendLine(FileHandle& handle, const FileURL& journal, const std::string& line,
                        FileSystem& files) {
    const auto length = handle.seekToEnd();
    if (!length)
        return std::unexpected(length.error());
    if (*length == 0)
        syncDirectory(journal.parent_path(), files); // The file may be new: no line without a durable name.
    const auto torn = endsTorn(handle, *length);
    if (!torn)
        return std::unexpected(torn.error());
    const auto written = writeAndSync(handle, *torn ? '\n' + line : line);
    if (!written)
        std::ignore = handle.truncate(*length);
    return written;
}

Result<void> overwrite(FileHandle& handle, std::string_view contents) {
    if (auto truncated = handle.truncate(0); !truncated)
        return truncated;
    if (auto sought = handle.seek(0); !sought)
        return sought;
    return writeAndSync(handle, contents);
}

Result<void> rewriteWithout(const std::set<Uuid>& ids, FileHandle& handle) {
    const auto bytes = handle.readToEnd();
    if (!bytes)
        return std::unexpected(bytes.error());
    const auto contents = encodeWithout(ids, decode(*bytes));
    if (!contents)
        return std::unexpected(contents.error());
    const auto done = overwrite(handle, *contents);
    if (!done)
        std::ignore = overwrite(handle, *bytes);
    return done;
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
    const auto appending = [&](FileHandle& handle) { return appendLine(handle, *journal, line, files); };
    return withLockedFile(*journal, appending, files);
}

Result<std::vector<WidgetJournalEntry>> pending(FileSystem& files) {
    const auto journal = journalURL();
    if (!journal)
        return std::unexpected(fileReadUnknown());
    const auto bytes = withLockedFile(*journal, [](FileHandle& handle) { return handle.readToEnd(); }, files);
    if (!bytes)
        return std::unexpected(bytes.error());
    return decode(*bytes);
}

Result<void> remove(const std::set<Uuid>& ids, FileSystem& files) {
    const auto journal = journalURL();
    if (!journal || ids.empty())
        return {};
    return withLockedFile(*journal, [&](FileHandle& handle) { return rewriteWithout(ids, handle); }, files);
}

Result<void> removeAll(FileSystem& files) {
    const auto journal = journalURL();
    if (!journal)
        return std::unexpected(fileWriteUnknown());
    const auto emptying = [](FileHandle& handle) -> Result<void> {
        if (auto truncated = handle.truncate(0); !truncated)
            return truncated;
        return handle.synchronizeData();
    };
    return withLockedFile(*journal, emptying, files);
}

} // namespace vantel::WidgetJournal
