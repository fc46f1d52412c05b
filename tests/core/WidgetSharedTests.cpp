#include "core/WidgetShared.h"
#include "tests/fakes/ChildProcess.h"
#include "tests/fakes/FaultSweep.h"
#include "tests/fakes/ScratchFolder.h"

#include <fstream>

#include <gmock/gmock.h>
#include <sys/stat.h>

namespace vantel {
namespace {

using ::testing::ElementsAre;
using testing::FileOperation;
using testing::Lasting;
using testing::MemoryFileSystem;
using testing::ScopedEnvironment;
using testing::ScratchFolder;
using WidgetShared::withLockedFile;

const FileURL lockFile = "/data/container/lock";

TEST(WidgetShared, TheThreeFilesLieInTheContainer) {
    const ScopedEnvironment dataHome("XDG_DATA_HOME", "/data");
    const FileURL container = "/data/group-containers/group.org.vantel.widgets";
    EXPECT_EQ(WidgetShared::containerURL(), container);
    EXPECT_EQ(WidgetShared::snapshotURL(), container / "widget-snapshot.json");
    EXPECT_EQ(WidgetShared::snapshotLockURL(), container / "widget-snapshot.lock");
    EXPECT_EQ(WidgetShared::journalURL(), container / "widget-journal.ndjson");
}

TEST(WidgetShared, TheFilesAreAbsentWithTheContainer) {
    const ScopedEnvironment dataHome("XDG_DATA_HOME", std::nullopt);
    const ScopedEnvironment home("HOME", std::nullopt);
    EXPECT_EQ(WidgetShared::containerURL(), std::nullopt);
    EXPECT_EQ(WidgetShared::snapshotURL(), std::nullopt);
    EXPECT_EQ(WidgetShared::snapshotLockURL(), std::nullopt);
    EXPECT_EQ(WidgetShared::journalURL(), std::nullopt);
}

TEST(WidgetShared, TheContainerIsFoundAnewOnEachAccess) {
    const ScopedEnvironment first("XDG_DATA_HOME", "/first");
    EXPECT_TRUE(WidgetShared::journalURL()->string().starts_with("/first/"));
    const ScopedEnvironment second("XDG_DATA_HOME", "/second");
    EXPECT_TRUE(WidgetShared::journalURL()->string().starts_with("/second/"));
}

TEST(WidgetShared, LinksHaveTheSchemeOfTheCompanion) {
    EXPECT_EQ(WidgetShared::urlScheme, "vantel");
}

/// A program with its own information dictionary, or with none.
struct GroupIdentifier : ::testing::Test {
    ScratchFolder folder;
    FileURL program = folder / "bin" / "program";
    FileURL dictionary = folder / "share" / "program" / "Info.json";

    void SetUp() override {
        std::filesystem::create_directories(program.parent_path());
        std::filesystem::create_directories(dictionary.parent_path());
        std::filesystem::copy_file(VANTEL_STORAGE_WORKER, program);
    }

    void write(const std::string& contents) const { std::ofstream(dictionary) << contents; }
    std::string shown() const { return testing::ChildProcess(program, {"identifier"}).readLine(); }
};

TEST_F(GroupIdentifier, IsTheTextOfTheDictionaryAsItStands) {
    for (const std::string text : {"group.test", "", " group ", "not a path / at all", "Gruppe-ä"}) {
        write(R"({"Other":1,"VantelAppGroupIdentifier":")" + text + "\"}");
        EXPECT_EQ(shown(), text);
    }
}

TEST_F(GroupIdentifier, IsTheDefaultWithoutADictionary) {
    EXPECT_EQ(shown(), "group.org.vantel.widgets");
}

TEST_F(GroupIdentifier, IsTheDefaultWhenTheDictionaryHoldsNoTextForIt) {
    for (const char* contents :
         {"", "{}", "not JSON", "[]", R"({"VantelAppGroupIdentifier":1})",
          R"({"VantelAppGroupIdentifier":null})", R"({"VantelAppGroupIdentifier":["group.test"]})",
          R"({"vantelAppGroupIdentifier":"group.test"})", R"({"VantelAppGroupIdentifier":"group.test"},)"}) {
        write(contents);
        EXPECT_EQ(shown(), "group.org.vantel.widgets") << contents;
    }
}

TEST_F(GroupIdentifier, IsKeptForTheLifeOfTheProcess) {
    write(R"({"VantelAppGroupIdentifier":"first"})");
    testing::ChildProcess process(program, {"identifier"});
    ASSERT_EQ(process.readLine(), "first");
    write(R"({"VantelAppGroupIdentifier":"second"})");
    process.writeLine("again");
    EXPECT_EQ(process.readLine(), "first");
    EXPECT_EQ(shown(), "second");
}

TEST(WithLockedFile, MakesTheMissingContainerAndALockFileOfModeLessTheUmask) {
    for (const mode_t mask : {0000, 0022, 0027, 0077}) {
        const ScratchFolder folder;
        const FileURL file = folder / "share" / "container" / "lock";
        const mode_t before = ::umask(mask);
        const auto locked = withLockedFile(file, [](FileHandle&) -> Result<void> { return {}; });
        ::umask(before);
        ASSERT_TRUE(locked);
        EXPECT_EQ(systemFileSystem().status(file).value(),
                  (FileStatus{FileStatus::Kind::regular, 0644U & ~mask, 0}));
        EXPECT_EQ(systemFileSystem().status(file.parent_path()).value().mode, 0700U);
    }
}

TEST(WithLockedFile, RunsTheBodyUnderTheLockAndReleasesItAfterwards) {
    MemoryFileSystem files;
    const auto result =
        withLockedFile(lockFile, [&](FileHandle&) -> Result<bool> { return files.isAnyLockHeld(); }, files);
    EXPECT_EQ(result, true);
    EXPECT_FALSE(files.isAnyDescriptorOpen());
    EXPECT_THAT(files.faults().calls(),
                ElementsAre(FileOperation::createDirectories, FileOperation::open, FileOperation::lock,
                            FileOperation::isNamed, FileOperation::unlock, FileOperation::close));
}

TEST(WithLockedFile, HandsBackWhateverTheBodyGives) {
    MemoryFileSystem files;
    const auto bytes = [](FileHandle&) -> Result<std::string> { return "bytes"; };
    const auto absent = [](FileHandle&) -> Result<std::optional<int>> { return std::nullopt; };
    const auto nothing = [](FileHandle&) -> Result<void> { return {}; };
    EXPECT_EQ(withLockedFile(lockFile, bytes, files), "bytes");
    EXPECT_EQ(withLockedFile(lockFile, absent, files).value(), std::nullopt);
    EXPECT_TRUE(withLockedFile(lockFile, nothing, files));
}

TEST(WithLockedFile, GivesTheBodyAHandleOfTheLockedFileWhichItNeverChangesItself) {
    MemoryFileSystem files;
    files.disk().plant(lockFile, "old");
    EXPECT_EQ(withLockedFile(lockFile, [](FileHandle& handle) { return handle.readToEnd(); }, files), "old");
    EXPECT_EQ(files.disk().contents(lockFile), "old");
    ASSERT_TRUE(withLockedFile(lockFile, [](FileHandle& handle) { return handle.write("new"); }, files));
    EXPECT_EQ(files.disk().contents(lockFile), "new");
}

TEST(WithLockedFile, ABodyThatFailsReleasesTheLockAndTheNextCallerDoesNotWait) {
    MemoryFileSystem files;
    const Error error = SystemError{"body", "", EIO};
    const auto failing = [&](FileHandle&) -> Result<void> { return std::unexpected(error); };
    EXPECT_EQ(withLockedFile(lockFile, failing, files).error(), error);
    EXPECT_FALSE(files.isAnyLockHeld());
    EXPECT_FALSE(files.isAnyDescriptorOpen());
    EXPECT_EQ(withLockedFile(lockFile, failing, files).error(), error);
}

TEST(WithLockedFile, ABodyThatThrowsReleasesTheLockToo) {
    MemoryFileSystem files;
    const auto throwing = [](FileHandle&) -> Result<void> { throw std::runtime_error("body"); };
    EXPECT_THROW(std::ignore = withLockedFile(lockFile, throwing, files), std::runtime_error);
    EXPECT_FALSE(files.isAnyDescriptorOpen());
}

TEST(WithLockedFile, ARealBodyThatFailsReleasesTheLockAndTheNextCallerDoesNotWait) {
    const ScratchFolder folder;
    const auto failing = [](FileHandle&) -> Result<void> { return std::unexpected(fileReadUnknown()); };
    EXPECT_EQ(withLockedFile(folder / "lock", failing).error(), fileReadUnknown());
    EXPECT_EQ(withLockedFile(folder / "lock", failing).error(), fileReadUnknown());
}

TEST(WithLockedFile, AFolderThatCannotBeMadeIsTheSystemsErrorAndNothingElseHappens) {
    MemoryFileSystem files;
    files.faults().fail(FileOperation::createDirectories, 1, ENOSPC, Lasting::once);
    const auto body = [](FileHandle&) -> Result<void> {
        ADD_FAILURE() << "ran without the lock";
        return {};
    };
    EXPECT_EQ(withLockedFile(lockFile, body, files).error(),
              Error(SystemError{"createDirectories", "/data/container", ENOSPC}));
    EXPECT_THAT(files.faults().calls(), ElementsAre(FileOperation::createDirectories));
}

TEST(WithLockedFile, AFileThatCannotBeOpenedOrLockedIsUnwritableAndTheBodyDoesNotRun) {
    for (const FileOperation operation : {FileOperation::open, FileOperation::lock}) {
        MemoryFileSystem files;
        files.faults().fail(operation, 1, EINTR, Lasting::once);
        const auto body = [](FileHandle&) -> Result<void> {
            ADD_FAILURE() << "ran without the lock";
            return {};
        };
        EXPECT_EQ(withLockedFile(lockFile, body, files).error(), fileWriteUnknown());
        EXPECT_FALSE(files.isAnyDescriptorOpen());
    }
}

TEST(WithLockedFile, AFailureToUnlockOrToCloseIsIgnored) {
    for (const FileOperation operation : {FileOperation::unlock, FileOperation::close}) {
        MemoryFileSystem files;
        files.faults().fail(operation, 1, EIO, Lasting::once);
        EXPECT_EQ(withLockedFile(lockFile, [](FileHandle&) -> Result<int> { return 7; }, files), 7);
        EXPECT_FALSE(files.isAnyDescriptorOpen());
    }
}

TEST(WithLockedFile, AFileInPlaceOfTheContainerIsAFailure) {
    const ScratchFolder folder;
    std::ofstream(folder / "container") << "a file";
    const auto locked =
        withLockedFile(folder / "container" / "lock", [](FileHandle&) -> Result<void> { return {}; });
    ASSERT_FALSE(locked);
    EXPECT_EQ(std::get<SystemError>(locked.error()).operation, "mkdir");
}

} // namespace
} // namespace vantel
