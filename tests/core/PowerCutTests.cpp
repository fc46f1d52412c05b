#include "core/RedoCopy.h"
#include "core/WidgetJournal.h"
#include "core/WidgetShared.h"
#include "core/WidgetSnapshotStore.h"
#include "tests/core/SampleJournal.h"
#include "tests/core/SampleSnapshot.h"
#include "tests/fakes/FaultSweep.h"
#include "tests/fakes/ScopedEnvironment.h"

#include <algorithm>
#include <set>

#include <gmock/gmock.h>

/// The power goes within any operation on the container, after each of its calls, and whatever was not synced
/// by then is lost, kept, half kept or zeros. Then everything starts again.
namespace vantel {
namespace {

using testing::cutPowerAfterEachCall;
using ::testing::IsSubsetOf;
using testing::MemoryDisk;
using testing::MemoryFileSystem;
using testing::noon;
using testing::sampleEntry;
using testing::sampleLine;
using testing::sampleSnapshot;
using testing::sampleUuid;

/// What a program that starts sees.
struct View {
    std::vector<WidgetJournalEntry> entries;
    std::optional<WidgetSnapshot> snapshot;

    bool operator==(const View&) const = default;
};

struct Files {
    FileURL journal = WidgetShared::journalURL().value();
    FileURL copy = RedoCopy::copyURL(journal);
    WidgetSnapshotStore store{WidgetShared::snapshotURL().value(), WidgetShared::snapshotLockURL().value()};
};

View look(FileSystem& on) {
    return {WidgetJournal::pending(on).value(), Files().store.load(on)};
}

struct Operation {
    const char* name;
    std::function<MemoryDisk()> before;
    std::function<Result<void>(FileSystem&)> operate;
};

void PrintTo(const Operation& operation, std::ostream* stream) {
    *stream << operation.name;
}

MemoryDisk empty() {
    return {};
}

MemoryDisk used() {
    MemoryDisk disk;
    const Files files;
    disk.plant(files.journal, sampleLine(1) + sampleLine(2) + sampleLine(3));
    disk.plant(files.store.lockURL, "");
    disk.plant(files.store.snapshotURL, testing::documentOf(sampleSnapshot()));
    return disk;
}

/// A removal of the second entry was killed when the journal was truncated.
MemoryDisk unfinished() {
    MemoryDisk disk = used();
    const std::string head = R"({"removed":[{"id":")" + text(sampleUuid(2)) + "\"}]}\n";
    disk.plant(Files().copy, head + sampleLine(1) + sampleLine(3));
    disk.plant(Files().journal, "");
    return disk;
}

/// The same, and a program that knows no copy has appended since.
MemoryDisk unfinishedWithAnother() {
    MemoryDisk disk = unfinished();
    disk.plant(Files().journal, sampleLine(4));
    return disk;
}

MemoryDisk torn() {
    MemoryDisk disk = used();
    disk.plant(Files().journal, sampleLine(1) + sampleLine(2).substr(0, 30));
    return disk;
}

Result<void> append(FileSystem& on) {
    return WidgetJournal::append(sampleEntry(9), on);
}

Result<void> read(FileSystem& on) {
    if (const auto entries = WidgetJournal::pending(on); !entries)
        return std::unexpected(entries.error());
    return {};
}

Result<void> removeThird(FileSystem& on) {
    return WidgetJournal::remove({sampleUuid(3)}, on);
}

Result<void> removeEvery(FileSystem& on) {
    return WidgetJournal::remove({sampleUuid(1), sampleUuid(2), sampleUuid(3)}, on);
}

Result<void> removeAll(FileSystem& on) {
    return WidgetJournal::removeAll(on);
}

Result<void> write(FileSystem& on) {
    return Files().store.write(sampleSnapshot("new"), on);
}

Result<void> stamp(FileSystem& on) {
    const auto stamped = Files().store.applyCompletion("a", noon, "account", on);
    return stamped && *stamped ? Result<void>() : std::unexpected(fileWriteUnknown());
}

Result<void> removeSnapshot(FileSystem& on) {
    return Files().store.remove(on);
}

const Operation operations[] = {{"AppendTheFirst", empty, append},
                                {"Append", used, append},
                                {"AppendToATornOne", torn, append},
                                {"AppendAndFinish", unfinished, append},
                                {"AppendAndFinishBesideAnother", unfinishedWithAnother, append},
                                {"ReadAndFinish", unfinished, read},
                                {"ReadAndFinishBesideAnother", unfinishedWithAnother, read},
                                {"RemoveOne", used, removeThird},
                                {"RemoveOneOfATornOne", torn, removeThird},
                                {"RemoveOneAndFinish", unfinished, removeThird},
                                {"RemoveEvery", used, removeEvery},
                                {"RemoveEveryAndFinish", unfinishedWithAnother, removeEvery},
                                {"Empty", used, removeAll},
                                {"EmptyAndFinish", unfinishedWithAnother, removeAll},
                                {"WriteTheFirst", empty, write},
                                {"Write", used, write},
                                {"Stamp", used, stamp},
                                {"RemoveTheSnapshot", used, removeSnapshot}};

struct PowerCut : ::testing::TestWithParam<Operation> {
    testing::ScopedEnvironment dataHome{"XDG_DATA_HOME", "/data"};

    static View lookAt(const MemoryDisk& disk) {
        MemoryFileSystem files(disk);
        return look(files);
    }

    static View viewAfter(const MemoryDisk& disk) {
        MemoryFileSystem files(disk);
        EXPECT_TRUE(GetParam().operate(files));
        return look(files);
    }

    /// All bytes under all names of the container.
    static std::string bytesOf(const MemoryDisk& disk) {
        std::string bytes;
        const FileURL folder = Files().journal.parent_path();
        for (const std::string& name : disk.names(folder))
            bytes += name.substr(0, 24) + '\n' + *disk.contents(folder / name) + '\n';
        return bytes;
    }

    static std::set<std::string> leftAfterUse(const MemoryDisk& disk) {
        MemoryFileSystem files(disk);
        EXPECT_TRUE(WidgetJournal::append(sampleEntry(7), files));
        EXPECT_TRUE(WidgetJournal::append(sampleEntry(8), files));
        EXPECT_TRUE(WidgetJournal::remove({sampleUuid(7)}, files));
        EXPECT_TRUE(Files().store.write(sampleSnapshot(), files));
        EXPECT_FALSE(files.isAnyDescriptorOpen());
        const auto names = files.disk().names(Files().journal.parent_path());
        return {names.begin(), names.end()};
    }
};

std::string nameOf(const ::testing::TestParamInfo<Operation>& info) {
    return info.param.name;
}

INSTANTIATE_TEST_SUITE_P(In, PowerCut, ::testing::ValuesIn(operations), nameOf);

TEST_P(PowerCut, LeavesEverythingAsBeforeOrAsAfterwardsAndKeepsWhatWasReported) {
    const MemoryDisk before = GetParam().before();
    const View old = lookAt(before);
    const View wanted = viewAfter(before);
    std::set<std::string> seen;
    cutPowerAfterEachCall(before, GetParam().operate, [&](const MemoryDisk& left, bool reported) {
        if (!seen.insert(bytesOf(left) + (reported ? "reported" : "")).second)
            return;
        const View found = lookAt(left);
        EXPECT_TRUE(found == wanted || (found == old && !reported));
    });
}

/// Of the disks that differ every sixteenth, for the time that it takes.
TEST_P(PowerCut, LeavesAContainerThatNextOperationsUseAndClean) {
    std::set<std::string> seen;
    cutPowerAfterEachCall(GetParam().before(), GetParam().operate, [&](const MemoryDisk& left, bool) {
        if (!seen.insert(bytesOf(left)).second || seen.size() % 16 != 1)
            return;
        EXPECT_THAT(leftAfterUse(left),
                    IsSubsetOf({"widget-journal.ndjson", "widget-snapshot.lock", "widget-snapshot.json"}));
    });
}

} // namespace
} // namespace vantel
