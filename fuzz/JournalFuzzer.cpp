#include "core/JournalLines.h"
#include "core/RedoCopy.h"
#include "core/WidgetJournal.h"
#include "fuzz/MemoryContainer.h"

#include <algorithm>

namespace vantel {
namespace {

using Entries = std::vector<WidgetJournalEntry>;
using testing::MemoryFileSystem;

void judgeLines(std::string_view bytes) {
    const Entries entries = decodeJournal(bytes);
    const auto written = encodeJournal(entries, {});
    promise(written.has_value(), "entries that were decoded can be written");
    promise(decodeJournal(*written) == entries, "they read back equal");
}

Entries pendingIn(MemoryFileSystem& files) {
    const auto entries = WidgetJournal::pending(files);
    promise(entries.has_value(), "a sound disk can be read");
    return *entries;
}

std::set<Uuid> everySecond(const Entries& entries) {
    std::set<Uuid> ids;
    for (std::size_t i = 0; i < entries.size(); i += 2)
        ids.insert(entries[i].id);
    return ids;
}

Entries without(Entries entries, const std::set<Uuid>& ids) {
    std::erase_if(entries, [&](const WidgetJournalEntry& entry) { return ids.contains(entry.id); });
    return entries;
}

void judgeRemoval(MemoryFileSystem& files) {
    const Entries before = pendingIn(files);
    promise(pendingIn(files) == before, "reading changes nothing that is read");
    const std::set<Uuid> ids = everySecond(before);
    promise(WidgetJournal::remove(ids, files).has_value(), "a sound disk takes a removal");
    promise(pendingIn(files) == without(before, ids), "exactly the others remain, in order");
    promise(!files.disk().contents(RedoCopy::copyURL(*WidgetShared::journalURL())), "no copy remains");
}

void judgeAppend(MemoryFileSystem& files) {
    Entries expected = pendingIn(files);
    expected.push_back({.id = {}, .accountID = "", .action = {}, .todoID = "last", .at = {}});
    promise(WidgetJournal::append(expected.back(), files).has_value(), "a sound disk takes an entry");
    promise(pendingIn(files) == expected, "an entry comes last, whatever stands before it");
}

/// Up to a byte that no text holds: a redo copy, if there is any; the rest is a journal.
testing::MemoryDisk diskOf(std::string_view bytes) {
    testing::MemoryDisk disk;
    const FileURL journal = *WidgetShared::journalURL();
    const std::size_t separator = bytes.find('\xFF');
    if (separator != std::string_view::npos)
        disk.plant(RedoCopy::copyURL(journal), std::string(bytes.substr(0, separator)));
    disk.plant(journal, std::string(bytes.substr(separator + 1)));
    return disk;
}

} // namespace
} // namespace vantel

/// Any bytes in a journal and in its redo copy leave every operation working.
extern "C" int LLVMFuzzerTestOneInput(const char* data, std::size_t size) {
    vantel::useMemoryContainer();
    vantel::judgeLines({data, size});
    vantel::testing::MemoryFileSystem files(vantel::diskOf({data, size}));
    vantel::judgeRemoval(files);
    vantel::judgeAppend(files);
    vantel::expectNothingHeld(files);
    return 0;
}
