#include "tests/torture/program/Disks.h"

#include "core/WidgetJournal.h"
#include "core/WidgetShared.h"
#include "core/WidgetSnapshot.h"
#include "tests/core/SampleJournal.h"
#include "tests/core/SampleSnapshot.h"
#include "tests/fakes/ScratchFolder.h"
#include "tests/torture/program/Operations.h"
#include "tests/torture/program/Report.h"

#include <cerrno>
#include <cstring>
#include <fstream>

#include <sched.h>
#include <sys/mount.h>

namespace vantel::torture {

using testing::sampleSnapshot;

namespace {

constexpr const char* small = "size=128k,mode=0700";

std::string whyNotMountable(const std::filesystem::path& folder) {
    if (::unshare(CLONE_NEWNS) != 0)
        return std::string("no mounts of its own: ") + std::strerror(errno);
    if (::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0)
        return std::string("no private mounts: ") + std::strerror(errno);
    if (::mount("small", folder.c_str(), "tmpfs", 0, small) != 0)
        return std::string("no small disk: ") + std::strerror(errno);
    return "";
}

WidgetJournalEntry entryOf(int number) {
    WidgetJournalEntry entry = testing::sampleEntry(1);
    entry.id.bytes[14] = static_cast<std::uint8_t>(number >> 8);
    entry.id.bytes[15] = static_cast<std::uint8_t>(number);
    return entry;
}

std::size_t countPending() {
    return WidgetJournal::pending().value().size();
}

/// Appends until the disk is full, and gives how many entries were acknowledged.
int fill() {
    int count = 0;
    while (WidgetJournal::append(entryOf(count)))
        ++count;
    return count;
}

void useFullDisk(Report& report) {
    report.expect(sampleSnapshot().write().has_value(), "a snapshot does not fit an empty disk");
    const auto count = static_cast<std::size_t>(fill());
    report.expect(count > 100, "the disk is full at once");
    report.expect(countPending() == count, "on a full disk, not every acknowledged entry is pending");
    report.expect(!WidgetJournal::append(entryOf(9999)), "an entry fits a full disk");
    report.expect(!sampleSnapshot("new").write(), "a snapshot fits a full disk");
    report.expect(WidgetSnapshot::load() == sampleSnapshot(), "a full disk has cost the old snapshot");
    report.expect(!WidgetJournal::remove({entryOf(0).id}), "a redo copy fits a full disk");
    report.expect(countPending() == count, "a removal that failed on a full disk has cost entries");
    report.expect(WidgetJournal::removeAll().has_value(), "a full disk cannot be drained");
    report.expect(countPending() == 0, "a drained journal is not empty");
    report.expect(WidgetJournal::append(entryOf(0)).has_value(), "there is no place after draining");
    report.expect(leftAfterUse().empty(), "a full disk has left a temporary file");
    std::cout << "a full disk: " << count << " entries acknowledged, all pending" << std::endl;
}

/// A removal is killed when its copy stands, and what was appended since then fills the disk: the rewrite
/// cannot be finished, and reading must still give everything.
void finishOnFullDisk(Report& report) {
    const std::string line = encodeJournalEntry(entryOf(1)).value() + "\n";
    put({.journal = "", .redoCopy = "{\"removed\":[]}\n" + line});
    std::ofstream filler(WidgetShared::containerURL().value() / "filler");
    while (filler << std::string(1024, ' ') << std::flush) {
    }
    filler.close();
    report.expect(countPending() == 1, "an unfinished rewrite on a full disk hides an entry");
    std::filesystem::remove(WidgetShared::containerURL().value() / "filler");
    report.expect(WidgetJournal::append(entryOf(2)).has_value() && countPending() == 2,
                  "an unfinished rewrite is not finished once there is place");
}

void useReadOnlyDisk(const std::filesystem::path& disk, Report& report) {
    put({});
    report.expect(WidgetJournal::append(entryOf(1)) && sampleSnapshot().write(), "a disk does not work");
    report.expect(::mount(nullptr, disk.c_str(), nullptr, MS_REMOUNT | MS_RDONLY, small) == 0,
                  "no read-only disk");
    report.expect(!WidgetJournal::append(entryOf(2)), "an entry was written to a read-only disk");
    report.expect(!WidgetJournal::remove({entryOf(1).id}) && !WidgetJournal::removeAll(),
                  "a read-only disk was drained");
    report.expect(!sampleSnapshot("new").write() && !WidgetSnapshot::remove(),
                  "a read-only snapshot was changed");
    report.expect(::mount(nullptr, disk.c_str(), nullptr, MS_REMOUNT, small) == 0, "no writable disk again");
    report.expect(countPending() == 1 && WidgetSnapshot::load() == sampleSnapshot(),
                  "a read-only disk has lost something");
    report.expect(WidgetJournal::append(entryOf(2)).has_value() && leftAfterUse().empty(),
                  "a disk does not work again");
    std::cout << "a read-only disk: nothing written, nothing lost" << std::endl;
}

} // namespace

int useQuota() {
    Report report;
    report.expect(sampleSnapshot().write().has_value(), "a snapshot does not fit an empty quota");
    const auto count = static_cast<std::size_t>(fill());
    report.expect(count > 100, "the quota is full at once");
    report.expect(!sampleSnapshot("new").write(), "a snapshot fits a full quota");
    report.expect(!WidgetJournal::remove({entryOf(0).id}), "a redo copy fits a full quota");
    // btrfs counts even the truncating of a file as something new.
    const bool isEmptied = WidgetJournal::removeAll().has_value();
    report.expect(countPending() == (isEmptied ? 0 : count), "a full quota has cost entries");
    report.expect(WidgetSnapshot::load() == sampleSnapshot(), "a full quota has cost the old snapshot");
    std::cout << "a full quota: " << count << " entries acknowledged, none lost" << std::endl;
    std::cin.get(); // until the quota is larger
    report.expect(countPending() == (isEmptied ? 0 : count), "a larger quota has cost entries");
    report.expect(WidgetJournal::removeAll() && countPending() == 0, "a larger quota cannot be drained");
    report.expect(leftAfterUse().empty(), "a full quota has left a temporary file");
    return report.status();
}

int useBadDisks() {
    const testing::ScratchFolder folder;
    if (const std::string reason = whyNotMountable(folder.path()); !reason.empty()) {
        std::cout << "skipped: " << reason << std::endl;
        return 77;
    }
    const testing::ScopedEnvironment dataHome("XDG_DATA_HOME", (folder / "data").string());
    Report report;
    useFullDisk(report);
    finishOnFullDisk(report);
    useReadOnlyDisk(folder.path(), report);
    ::umount2(folder.path().c_str(), MNT_DETACH);
    return report.status();
}

} // namespace vantel::torture
