#include "core/WidgetSnapshotStore.h"
#include "tests/core/SampleSnapshot.h"
#include "tests/fakes/MemoryFileSystem.h"
#include "tests/fakes/ReadFile.h"
#include "tests/fakes/ScratchFolder.h"

#include <limits>

#include <gmock/gmock.h>
#include <sys/stat.h>

namespace vantel {
namespace {

using ::testing::Contains;
using testing::documentOf;
using ::testing::ElementsAre;
using testing::FileOperation;
using testing::Lasting;
using testing::MemoryFileSystem;
using testing::noon;
using ::testing::Not;
using testing::sampleSnapshot;

const FileURL folder = "/data/container";
const WidgetSnapshotStore store{folder / "snapshot", folder / "lock"};

/// A store on a memory disk.
struct SnapshotStore : ::testing::Test {
    MemoryFileSystem files;

    void plant(const std::string& document) { files.disk().plant(store.snapshotURL, document); }
    void plant(const WidgetSnapshot& snapshot) { plant(documentOf(snapshot)); }
    std::string document() const { return files.disk().contents(store.snapshotURL).value_or("missing"); }
    const std::vector<FileOperation>& calls() const { return files.faults().calls(); }
};

std::string withVersion(std::int64_t version) {
    WidgetSnapshot snapshot = sampleSnapshot();
    snapshot.version = version;
    return documentOf(snapshot);
}

/// Documents that count as no snapshot, by the reason.
const std::map<std::string, std::string> invalidDocuments = {
    {"empty", ""},
    {"not JSON", "snapshot"},
    {"torn", documentOf(sampleSnapshot()).substr(0, 200)},
    {"zeros", std::string(200, '\0')},
    {"followed by something", documentOf(sampleSnapshot()) + "x"},
    {"not an object", "[]"},
    {"wrong shape", "{}"},
    {"not UTF-8", "{\"accountID\":\"\xFF\"}"},
    {"version 0", withVersion(0)},
    {"version 2", withVersion(2)},
    {"version -1", withVersion(-1)}};

TEST_F(SnapshotStore, WhatIsWrittenIsLoaded) {
    ASSERT_TRUE(store.write(sampleSnapshot(), files));
    EXPECT_EQ(store.load(files), sampleSnapshot());
    EXPECT_EQ(document(), documentOf(sampleSnapshot()));
}

TEST_F(SnapshotStore, WritingReplacesTheOldSnapshotAndLeavesOnlyTheTwoFiles) {
    plant(sampleSnapshot("old"));
    ASSERT_TRUE(store.write(sampleSnapshot("new"), files));
    EXPECT_EQ(document(), documentOf(sampleSnapshot("new")));
    EXPECT_THAT(files.disk().names(folder), ElementsAre("lock", "snapshot"));
}

TEST_F(SnapshotStore, WritingReplacesWhatIsNoSnapshot) {
    for (const auto& [reason, document] : invalidDocuments) {
        plant(document);
        ASSERT_TRUE(store.write(sampleSnapshot(), files)) << reason;
        EXPECT_EQ(store.load(files), sampleSnapshot()) << reason;
    }
}

TEST_F(SnapshotStore, WritingMakesTheFolderOfTheSnapshotToo) {
    const WidgetSnapshotStore apart{"/elsewhere/below/snapshot", folder / "lock"};
    ASSERT_TRUE(apart.write(sampleSnapshot(), files));
    EXPECT_EQ(apart.load(files), sampleSnapshot());
}

TEST_F(SnapshotStore, LoadingAMissingSnapshotIsAbsentAndLeavesAnEmptyLockFile) {
    EXPECT_EQ(store.load(files), std::nullopt);
    EXPECT_EQ(files.disk().contents(store.lockURL), "");
    EXPECT_THAT(files.disk().names(folder), ElementsAre("lock"));
}

TEST_F(SnapshotStore, LoadingChangesNoByte) {
    plant(" " + documentOf(sampleSnapshot()) + "\n");
    EXPECT_EQ(store.load(files), sampleSnapshot());
    EXPECT_EQ(document(), " " + documentOf(sampleSnapshot()) + "\n");
}

TEST_F(SnapshotStore, WhatIsNoSnapshotLoadsAsAbsentAndStays) {
    for (const auto& [reason, invalid] : invalidDocuments) {
        plant(invalid);
        EXPECT_EQ(store.load(files), std::nullopt) << reason;
        EXPECT_EQ(document(), invalid) << reason;
    }
}

TEST_F(SnapshotStore, WhatIsNoSnapshotIsNeitherStampedNorRemovedForAnAccountAndStays) {
    for (const auto& [reason, invalid] : invalidDocuments) {
        plant(invalid);
        EXPECT_EQ(store.applyCompletion("a", noon, "account", files), false) << reason;
        EXPECT_EQ(store.remove("account", true, files), false) << reason;
        EXPECT_EQ(document(), invalid) << reason;
    }
}

TEST_F(SnapshotStore, ASnapshotOfVersionTwoIsAbsentAndACompletionLeavesItUntouched) {
    plant(withVersion(2));
    EXPECT_EQ(store.load(files), std::nullopt);
    EXPECT_EQ(store.applyCompletion("a", noon, "account", files), false);
    EXPECT_EQ(document(), withVersion(2));
    EXPECT_THAT(calls(), Not(Contains(FileOperation::write)));
}

TEST_F(SnapshotStore, AMissingSnapshotIsNeitherStampedNorRemovedForAnAccount) {
    EXPECT_EQ(store.applyCompletion("a", noon, "account", files), false);
    EXPECT_EQ(store.remove("account", true, files), false);
    EXPECT_THAT(files.disk().names(folder), ElementsAre("lock"));
}

TEST_F(SnapshotStore, RemovingDeletesTheSnapshotAndKeepsTheLockFile) {
    plant(sampleSnapshot());
    ASSERT_TRUE(store.remove(files));
    EXPECT_THAT(files.disk().names(folder), ElementsAre("lock"));
}

TEST_F(SnapshotStore, RemovingAMissingSnapshotSucceeds) {
    EXPECT_TRUE(store.remove(files));
    EXPECT_THAT(calls(), Not(Contains(FileOperation::remove)));
}

TEST_F(SnapshotStore, RemovingDeletesWhatIsNoSnapshotToo) {
    for (const auto& [reason, invalid] : invalidDocuments) {
        plant(invalid);
        EXPECT_TRUE(store.remove(files)) << reason;
        EXPECT_EQ(document(), "missing") << reason;
    }
}

TEST_F(SnapshotStore, RemovingForAnAccountDeletesItsSnapshotAndAnUnboundOneWhenAllowed) {
    struct Row {
        const char* inFile;
        const char* asked;
        bool allowingLegacyUnbound;
        bool removed;
    };
    for (const auto& [inFile, asked, allowingLegacyUnbound, removed] :
         {Row{"A", "A", true, true}, Row{"A", "A", false, true}, Row{"", "A", true, true},
          Row{"", "A", false, false}, Row{"B", "A", true, false}, Row{"B", "A", false, false},
          Row{"a", "A", true, false}, Row{"A ", "A", true, false}, Row{"A", "", true, false},
          Row{"", "", true, true}, Row{"", "", false, true}}) {
        SCOPED_TRACE(std::string(inFile) + "/" + asked + (allowingLegacyUnbound ? ", allowed" : ""));
        plant(sampleSnapshot(inFile));
        EXPECT_EQ(store.remove(asked, allowingLegacyUnbound, files), removed);
        EXPECT_EQ(document(), removed ? "missing" : documentOf(sampleSnapshot(inFile)));
    }
}

TEST_F(SnapshotStore, ACompletionStampsItsTaskAndChangesNothingElse) {
    plant(sampleSnapshot());
    EXPECT_EQ(store.applyCompletion("b", noon, "account", files), true);
    WidgetSnapshot expected = sampleSnapshot();
    expected.tasks[1].completedAt = noon;
    EXPECT_EQ(document(), documentOf(expected));
}

TEST_F(SnapshotStore, ACompletionOfAnUnknownTaskRewritesTheSnapshotUnchanged) {
    for (const char* unknown : {"", "x", "A", "a ", "aa"}) {
        plant(" " + documentOf(sampleSnapshot()));
        EXPECT_EQ(store.applyCompletion(unknown, noon, "account", files), true) << unknown;
        EXPECT_EQ(document(), documentOf(sampleSnapshot())) << unknown;
    }
}

TEST_F(SnapshotStore, ACompletionStampsEveryTaskOfTheId) {
    WidgetSnapshot snapshot = sampleSnapshot();
    snapshot.tasks[2].id = "a";
    plant(snapshot);
    EXPECT_EQ(store.applyCompletion("a", noon, "account", files), true);
    const auto loaded = store.load(files);
    ASSERT_TRUE(loaded);
    EXPECT_EQ(loaded->tasks[0].completedAt, noon);
    EXPECT_EQ(loaded->tasks[1].completedAt, std::nullopt);
    EXPECT_EQ(loaded->tasks[2].completedAt, noon);
}

TEST_F(SnapshotStore, ACompletionOfACompletedTaskOverwritesItsInstant) {
    plant(sampleSnapshot());
    ASSERT_NE(sampleSnapshot().tasks[2].completedAt, noon);
    EXPECT_EQ(store.applyCompletion("c", noon, "account", files), true);
    EXPECT_EQ(store.load(files)->tasks[2].completedAt, noon);
}

TEST_F(SnapshotStore, ACompletionForAnotherAccountWritesNothing) {
    struct Row {
        const char* inFile;
        const char* asked;
    };
    for (const auto& [inFile, asked] : {Row{"A", "B"}, Row{"A", "a"}, Row{"A", ""}, Row{"", "A"}}) {
        plant(" " + documentOf(sampleSnapshot(inFile)));
        EXPECT_EQ(store.applyCompletion("a", noon, asked, files), false) << inFile << "/" << asked;
        EXPECT_EQ(document(), " " + documentOf(sampleSnapshot(inFile)));
    }
    EXPECT_THAT(calls(), Not(Contains(FileOperation::write)));
}

TEST_F(SnapshotStore, ACompletionForNoAccountIsForAnUnboundSnapshot) {
    plant(sampleSnapshot(""));
    EXPECT_EQ(store.applyCompletion("a", noon, "", files), true);
    EXPECT_EQ(store.load(files)->tasks[0].completedAt, noon);
}

TEST_F(SnapshotStore, ASnapshotThatCannotBeEncodedLeavesTheOldOne) {
    plant(sampleSnapshot());
    WidgetSnapshot snapshot = sampleSnapshot("new");
    snapshot.tasks[1].priorityScore = std::numeric_limits<double>::quiet_NaN();
    const auto written = store.write(snapshot, files);
    ASSERT_FALSE(written);
    EXPECT_EQ(std::get<EncodingError>(written.error()).keyPath, "tasks[1].priorityScore");
    EXPECT_EQ(document(), documentOf(sampleSnapshot()));
}

TEST_F(SnapshotStore, AStampThatCannotBeEncodedLeavesTheOldSnapshot) {
    plant(sampleSnapshot());
    const Instant never = instantFromReference(std::numeric_limits<double>::infinity());
    const auto stamped = store.applyCompletion("a", never, "account", files);
    ASSERT_FALSE(stamped);
    EXPECT_EQ(std::get<EncodingError>(stamped.error()).keyPath, "tasks[0].completedAt");
    EXPECT_EQ(document(), documentOf(sampleSnapshot()));
}

TEST_F(SnapshotStore, EveryOperationHoldsTheLockFromItsFirstReadToItsLastWrite) {
    const std::vector<std::function<void(FileSystem&)>> operations = {
        [](FileSystem& on) { std::ignore = store.load(on); },
        [](FileSystem& on) { std::ignore = store.write(sampleSnapshot(), on); },
        [](FileSystem& on) { std::ignore = store.applyCompletion("a", noon, "account", on); },
        [](FileSystem& on) { std::ignore = store.remove("account", false, on); },
        [](FileSystem& on) { std::ignore = store.remove(on); }};
    for (const auto& operate : operations) {
        MemoryFileSystem fresh;
        fresh.disk().plant(store.snapshotURL, documentOf(sampleSnapshot()));
        operate(fresh);
        const auto& made = fresh.faults().calls();
        ASSERT_GT(made.size(), 6U);
        EXPECT_THAT(std::vector(made.begin(), made.begin() + 3),
                    ElementsAre(FileOperation::createDirectories, FileOperation::open, FileOperation::lock));
        EXPECT_THAT(std::vector(made.end() - 2, made.end()),
                    ElementsAre(FileOperation::unlock, FileOperation::close));
        EXPECT_EQ(std::ranges::count(made, FileOperation::unlock), 1);
    }
}

TEST_F(SnapshotStore, WithoutALockFolderLoadingIsAbsentAndTheOthersAreTheSystemsError) {
    plant(sampleSnapshot());
    files.faults().fail(FileOperation::createDirectories, 1, EROFS, Lasting::fromThenOn);
    const Error error = SystemError{"createDirectories", folder, EROFS};
    EXPECT_EQ(store.load(files), std::nullopt);
    EXPECT_EQ(store.write(sampleSnapshot("new"), files).error(), error);
    EXPECT_EQ(store.applyCompletion("a", noon, "account", files).error(), error);
    EXPECT_EQ(store.remove("account", false, files).error(), error);
    EXPECT_EQ(store.remove(files).error(), error);
    EXPECT_EQ(document(), documentOf(sampleSnapshot()));
}

TEST_F(SnapshotStore, WithoutALockLoadingIsAbsentAndTheOthersAreUnwritable) {
    for (const FileOperation operation : {FileOperation::open, FileOperation::lock}) {
        MemoryFileSystem failing;
        failing.disk().plant(store.snapshotURL, documentOf(sampleSnapshot()));
        failing.faults().fail(operation, 1, ENOLCK, Lasting::fromThenOn);
        EXPECT_EQ(store.load(failing), std::nullopt);
        EXPECT_EQ(store.write(sampleSnapshot("new"), failing).error(), fileWriteUnknown());
        EXPECT_EQ(store.applyCompletion("a", noon, "account", failing).error(), fileWriteUnknown());
        EXPECT_EQ(store.remove("account", false, failing).error(), fileWriteUnknown());
        EXPECT_EQ(store.remove(failing).error(), fileWriteUnknown());
        EXPECT_EQ(failing.disk().contents(store.snapshotURL), documentOf(sampleSnapshot()));
    }
}

TEST_F(SnapshotStore, AnUnreadableSnapshotIsAbsentAndNeitherStampedNorRemovedForAnAccount) {
    plant(sampleSnapshot());
    files.faults().fail(FileOperation::read, 1, EIO, Lasting::fromThenOn);
    EXPECT_EQ(store.load(files), std::nullopt);
    EXPECT_EQ(store.applyCompletion("a", noon, "account", files), false);
    EXPECT_EQ(store.remove("account", true, files), false);
    EXPECT_EQ(document(), documentOf(sampleSnapshot()));
}

TEST_F(SnapshotStore, AFailedWriteOrRemovalIsHandedUpUnchanged) {
    plant(sampleSnapshot());
    files.faults().fail(FileOperation::rename, 1, EXDEV, Lasting::fromThenOn);
    files.faults().fail(FileOperation::remove, 3, EPERM, Lasting::fromThenOn);
    const Error unwritten = SystemError{"rename", store.snapshotURL, EXDEV};
    const Error unremoved = SystemError{"remove", store.snapshotURL, EPERM};
    EXPECT_EQ(store.write(sampleSnapshot("new"), files).error(), unwritten);
    EXPECT_EQ(store.applyCompletion("a", noon, "account", files).error(), unwritten);
    EXPECT_EQ(store.remove("account", false, files).error(), unremoved);
    EXPECT_EQ(store.remove(files).error(), unremoved);
    EXPECT_EQ(document(), documentOf(sampleSnapshot()));
}

TEST_F(SnapshotStore, AFolderInItsPlaceIsNoSnapshotAndCanBeNeitherWrittenNorRemoved) {
    files.disk().makeFolders(store.snapshotURL);
    EXPECT_EQ(store.load(files), std::nullopt);
    EXPECT_FALSE(store.write(sampleSnapshot(), files));
    EXPECT_EQ(store.remove("account", true, files), false);
    EXPECT_FALSE(store.remove(files));
    EXPECT_THAT(files.disk().names(folder), ElementsAre("lock"));
}

/// A store in a real folder that does not exist yet.
struct RealSnapshotStore : ::testing::Test {
    testing::ScratchFolder scratch;
    WidgetSnapshotStore store{scratch / "new" / "snapshot", scratch / "new" / "lock"};

    unsigned modeOf(const FileURL& file) { return systemFileSystem().status(file).value().mode; }
};

TEST_F(RealSnapshotStore, IsWrittenLoadedStampedAndRemoved) {
    EXPECT_EQ(store.load(), std::nullopt);
    ASSERT_TRUE(store.write(sampleSnapshot()));
    EXPECT_EQ(store.load(), sampleSnapshot());
    EXPECT_EQ(store.applyCompletion("a", noon, "account"), true);
    EXPECT_EQ(store.load(), sampleSnapshot().applyingCompletion("a", noon));
    EXPECT_EQ(store.remove("other", false), false);
    EXPECT_EQ(store.remove("account", false), true);
    EXPECT_EQ(store.load(), std::nullopt);
    EXPECT_EQ(std::filesystem::file_size(store.lockURL), 0U);
}

TEST_F(RealSnapshotStore, TheFirstLoadMakesThePrivateFolderAndTheLockFile) {
    const mode_t before = ::umask(0022);
    EXPECT_EQ(store.load(), std::nullopt);
    ::umask(before);
    EXPECT_EQ(modeOf(scratch / "new"), 0700U);
    EXPECT_EQ(modeOf(store.lockURL), 0644U);
    EXPECT_FALSE(std::filesystem::exists(store.snapshotURL));
}

TEST_F(RealSnapshotStore, AFifoOrAnEndlessDeviceInItsPlaceIsNoSnapshot) {
    std::filesystem::create_directory(scratch / "new");
    ASSERT_EQ(::mkfifo(store.snapshotURL.c_str(), 0600), 0);
    EXPECT_EQ(store.load(), std::nullopt);
    EXPECT_EQ(store.applyCompletion("a", noon, "account"), false);
    std::filesystem::remove(store.snapshotURL);
    std::filesystem::create_symlink("/dev/zero", store.snapshotURL);
    EXPECT_EQ(store.load(), std::nullopt);
}

TEST_F(RealSnapshotStore, AStampKeepsTheModeAndReplacesALinkInsteadOfFollowingIt) {
    ASSERT_TRUE(store.write(sampleSnapshot()));
    std::filesystem::permissions(store.snapshotURL, std::filesystem::perms(0600));
    std::filesystem::rename(store.snapshotURL, scratch / "real");
    std::filesystem::create_symlink(scratch / "real", store.snapshotURL);
    EXPECT_EQ(store.applyCompletion("a", noon, "account"), true);
    EXPECT_FALSE(std::filesystem::is_symlink(store.snapshotURL));
    EXPECT_EQ(modeOf(store.snapshotURL), 0600U);
    EXPECT_EQ(testing::readFile(scratch / "real"), documentOf(sampleSnapshot()));
}

} // namespace
} // namespace vantel
