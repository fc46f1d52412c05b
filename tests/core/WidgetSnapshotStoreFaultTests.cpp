#include "core/WidgetSnapshotStore.h"
#include "tests/core/SampleSnapshot.h"
#include "tests/fakes/FaultSweep.h"

#include <gmock/gmock.h>

/// The store on a disk that fails, fills up and loses its power: at every call of every operation.
namespace vantel {
namespace {

using testing::documentOf;
using testing::FileOperation;
using ::testing::IsSubsetOf;
using testing::Lasting;
using testing::MemoryDisk;
using testing::MemoryFileSystem;
using testing::noon;
using testing::sampleSnapshot;

const FileURL folder = "/data/container";
const WidgetSnapshotStore store{folder / "snapshot", folder / "lock"};

/// One operation on a stored snapshot, and what is stored when it has happened.
struct Change {
    const char* name;
    std::function<Result<bool>(FileSystem&)> operate;
    std::string after;
};

void PrintTo(const Change& change, std::ostream* stream) {
    *stream << change.name;
}

Result<bool> done(const Result<void>& result) {
    if (!result)
        return std::unexpected(result.error());
    return true;
}

const std::string before = documentOf(sampleSnapshot());
const std::string missing = "missing";

MemoryDisk diskBefore() {
    MemoryDisk disk;
    disk.plant(store.snapshotURL, before, 0600);
    disk.plant(store.lockURL, "");
    return disk;
}

std::string stored(const MemoryDisk& disk) {
    return disk.contents(store.snapshotURL).value_or(missing);
}

const Change changes[] = {
    {"write", [](FileSystem& on) { return done(store.write(sampleSnapshot("new"), on)); },
     documentOf(sampleSnapshot("new"))},
    {"applyCompletion", [](FileSystem& on) { return store.applyCompletion("a", noon, "account", on); },
     documentOf(sampleSnapshot().applyingCompletion("a", noon))},
    {"remove", [](FileSystem& on) { return done(store.remove(on)); }, missing},
    {"removeMatching", [](FileSystem& on) { return store.remove("account", false, on); }, missing}};

struct SnapshotStoreFaults : ::testing::TestWithParam<Change> {
    static std::string nameOf(const ::testing::TestParamInfo<Change>& info) { return info.param.name; }

    /// False is as good as a failure: the operation says that it did nothing.
    static Result<void> happens(FileSystem& files) {
        const auto result = GetParam().operate(files);
        if (result && *result)
            return {};
        return std::unexpected(result ? fileReadUnknown() : result.error());
    }
};

INSTANTIATE_TEST_SUITE_P(Of, SnapshotStoreFaults, ::testing::ValuesIn(changes), SnapshotStoreFaults::nameOf);

TEST_P(SnapshotStoreFaults, WhicheverCallFailsOnceItHasHappenedOrNothingHas) {
    for (const int number : {EIO, ENOSPC, EINTR})
        testing::failEachCall(diskBefore(), number, Lasting::once, happens,
                              [](const MemoryFileSystem& files, bool succeeded) {
                                  EXPECT_EQ(stored(files.disk()), succeeded ? GetParam().after : before);
                                  EXPECT_THAT(files.disk().names(folder), IsSubsetOf({"lock", "snapshot"}));
                              });
}

TEST_P(SnapshotStoreFaults, WhenEverythingFailsFromACallOnItHasHappenedOrNothingHas) {
    testing::failEachCall(diskBefore(), EIO, Lasting::fromThenOn, happens,
                          [](const MemoryFileSystem& files, bool succeeded) {
                              EXPECT_EQ(stored(files.disk()), succeeded ? GetParam().after : before);
                          });
}

TEST_P(SnapshotStoreFaults, WhenOneOperationFailsForGoodNoTemporaryIsLeft) {
    for (int i = 0; i < static_cast<int>(FileOperation::remove); ++i) {
        MemoryFileSystem files(diskBefore());
        files.faults().fail(static_cast<FileOperation>(i), 1, EIO, Lasting::fromThenOn);
        const bool succeeded = happens(files).has_value();
        SCOPED_TRACE(name(static_cast<FileOperation>(i)));
        EXPECT_EQ(stored(files.disk()), succeeded ? GetParam().after : before);
        EXPECT_THAT(files.disk().names(folder), IsSubsetOf({"lock", "snapshot"}));
        EXPECT_FALSE(files.isAnyDescriptorOpen());
    }
}

TEST_P(SnapshotStoreFaults, TheModeIsKeptWhicheverCallFails) {
    testing::failEachCall(diskBefore(), EIO, Lasting::once, happens, [](const MemoryFileSystem& files, bool) {
        EXPECT_EQ(files.disk().mode(store.snapshotURL).value_or(0600U), 0600U);
    });
}

TEST_P(SnapshotStoreFaults, APowerCutLeavesTheOldSnapshotOrTheNewOneWholeAndAReportedOneStays) {
    testing::cutPowerAfterEachCall(diskBefore(), happens, [](const MemoryDisk& left, bool reported) {
        const std::string found = stored(left);
        EXPECT_TRUE(found == GetParam().after || (found == before && !reported));
    });
}

TEST_P(SnapshotStoreFaults, AfterAPowerCutTheOperationCanBeDoneAgain) {
    testing::cutPowerAfterEachCall(diskBefore(), happens, [](const MemoryDisk& left, bool) {
        MemoryFileSystem files(left);
        EXPECT_TRUE(stored(left) != before || happens(files));
        EXPECT_EQ(stored(files.disk()), GetParam().after);
    });
}

TEST(SnapshotStoreFirstWrite, WhicheverCallFailsThereIsASnapshotOrNoFile) {
    const auto write = [](FileSystem& files) { return store.write(sampleSnapshot(), files); };
    testing::failEachCall({}, EIO, Lasting::once, write, [](const MemoryFileSystem& files, bool succeeded) {
        EXPECT_EQ(stored(files.disk()), succeeded ? before : missing);
        EXPECT_THAT(files.disk().names(folder), IsSubsetOf({"lock", "snapshot"}));
    });
}

TEST(SnapshotStoreFirstWrite, APowerCutLeavesItWholeOrMissingAndAReportedOneStays) {
    const auto write = [](FileSystem& files) { return store.write(sampleSnapshot(), files); };
    testing::cutPowerAfterEachCall({}, write, [](const MemoryDisk& left, bool reported) {
        EXPECT_TRUE(stored(left) == before || (stored(left) == missing && !reported));
    });
}

TEST(SnapshotStoreLoad, WhicheverCallFailsItGivesTheSnapshotOrNothingAndChangesNothing) {
    const auto load = [](FileSystem& files) -> Result<void> {
        EXPECT_EQ(store.load(files).value_or(sampleSnapshot()), sampleSnapshot());
        return {};
    };
    for (const Lasting lasting : {Lasting::once, Lasting::fromThenOn})
        testing::failEachCall(diskBefore(), EIO, lasting, load, [](const MemoryFileSystem& files, bool) {
            EXPECT_EQ(stored(files.disk()), before);
            EXPECT_EQ(files.disk().names(folder).size(), 2U);
        });
}

TEST(SnapshotStoreTwoStamps, AReportedOneSurvivesAPowerCutDuringTheNext) {
    MemoryFileSystem first(diskBefore());
    ASSERT_EQ(store.applyCompletion("a", noon, "account", first), true);
    const auto second = [](FileSystem& files) { return store.applyCompletion("b", noon, "account", files); };
    testing::cutPowerAfterEachCall(first.disk(), second, [](const MemoryDisk& left, bool) {
        MemoryFileSystem files(left);
        const auto snapshot = store.load(files);
        ASSERT_TRUE(snapshot);
        EXPECT_EQ(snapshot->tasks[0].completedAt, noon);
    });
}

} // namespace
} // namespace vantel
