#include "platform/DataFile.h"
#include "tests/fakes/FaultSweep.h"
#include "tests/fakes/ScratchFolder.h"

#include <fstream>

#include <gmock/gmock.h>
#include <sys/stat.h>

namespace vantel {
namespace {

using ::testing::AnyOf;
using ::testing::ElementsAre;
using ::testing::Eq;
using testing::FileOperation;
using ::testing::IsEmpty;
using testing::Lasting;
using testing::MemoryDisk;
using testing::MemoryFileSystem;
using testing::ScratchFolder;

const FileURL folder = "/data";
const FileURL file = folder / "file";
const std::string oldBytes = "the old bytes";
const std::string newBytes = "some new bytes";

MemoryDisk emptyDisk() {
    MemoryDisk disk;
    disk.makeFolders(folder);
    return disk;
}

MemoryDisk diskWithTheOldFile() {
    MemoryDisk disk;
    disk.plant(file, oldBytes, 0600);
    return disk;
}

Result<void> writeNewBytes(FileSystem& files) {
    return writeFileAtomically(file, newBytes, files);
}

int numberOf(const Result<std::string>& result) {
    return result ? 0 : std::get<SystemError>(result.error()).number;
}

TEST(DataFile, IsReadWhole) {
    MemoryFileSystem files(diskWithTheOldFile());
    EXPECT_EQ(readFile(file, files), oldBytes);
    EXPECT_FALSE(files.isAnyDescriptorOpen());
}

TEST(DataFile, AMissingOneHasNoBytes) {
    MemoryFileSystem files(emptyDisk());
    EXPECT_EQ(readFile(file, files).error(), Error(SystemError{"open", file, ENOENT}));
}

TEST(DataFile, ReadingLeavesNothingOpenWhateverCallFails) {
    const auto read = [](FileSystem& files) { return readFile(file, files); };
    for (const Lasting lasting : {Lasting::once, Lasting::fromThenOn})
        testing::failEachCall(
            diskWithTheOldFile(), EIO, lasting, read,
            [](const MemoryFileSystem& files, bool) { EXPECT_EQ(files.disk().contents(file), oldBytes); });
}

TEST(DataFile, IsWrittenSyncedAndThenPutInPlace) {
    MemoryFileSystem files(diskWithTheOldFile());
    ASSERT_TRUE(writeNewBytes(files));
    EXPECT_THAT(files.faults().calls(),
                ElementsAre(FileOperation::open, FileOperation::status, FileOperation::changeMode,
                            FileOperation::write, FileOperation::sync, FileOperation::close,
                            FileOperation::rename, FileOperation::open, FileOperation::sync,
                            FileOperation::close));
    EXPECT_EQ(files.disk().contents(file), newBytes);
    EXPECT_THAT(files.disk().names(folder), ElementsAre("file"));
}

TEST(DataFile, AReplacedOneKeepsItsMode) {
    for (const unsigned mode : {0600U, 0640U, 0666U, 0444U}) {
        MemoryFileSystem files;
        files.disk().plant(file, oldBytes, mode);
        ASSERT_TRUE(writeNewBytes(files));
        EXPECT_EQ(files.disk().mode(file), mode);
    }
}

TEST(DataFile, AFirstOneIsReadableByOthers) {
    MemoryFileSystem files(emptyDisk());
    ASSERT_TRUE(writeNewBytes(files));
    EXPECT_EQ(files.disk().contents(file), newBytes);
    EXPECT_EQ(files.disk().mode(file), 0644U);
}

TEST(DataFile, MayBeEmpty) {
    MemoryFileSystem files(diskWithTheOldFile());
    ASSERT_TRUE(writeFileAtomically(file, "", files));
    EXPECT_EQ(files.disk().contents(file), "");
}

TEST(DataFile, IsWrittenWholeInShortAndInterruptedWrites) {
    MemoryFileSystem files(diskWithTheOldFile());
    files.faults().shorten(FileOperation::write, 1, 1, Lasting::fromThenOn);
    files.faults().fail(FileOperation::write, 5, EINTR, Lasting::once);
    ASSERT_TRUE(writeNewBytes(files));
    EXPECT_EQ(files.disk().contents(file), newBytes);
}

TEST(DataFile, WritingInAMissingFolderFails) {
    MemoryFileSystem files;
    EXPECT_EQ(std::get<SystemError>(writeNewBytes(files).error()).number, ENOENT);
}

TEST(DataFile, WhicheverCallFailsOnceTheOldOneStandsOrTheNewOneIsThere) {
    for (const int number : {EIO, ENOSPC, EINTR})
        testing::failEachCall(diskWithTheOldFile(), number, Lasting::once, writeNewBytes,
                              [](const MemoryFileSystem& files, bool succeeded) {
                                  EXPECT_EQ(files.disk().contents(file), succeeded ? newBytes : oldBytes);
                                  EXPECT_EQ(files.disk().mode(file), 0600U);
                                  EXPECT_THAT(files.disk().names(folder), ElementsAre("file"));
                              });
}

TEST(DataFile, WhicheverCallFailsOnceAFirstOneIsThereOrNothing) {
    testing::failEachCall(emptyDisk(), EIO, Lasting::once, writeNewBytes,
                          [](const MemoryFileSystem& files, bool succeeded) {
                              EXPECT_EQ(files.disk().contents(file).has_value(), succeeded);
                              EXPECT_EQ(files.disk().names(folder).size(), succeeded ? 1U : 0U);
                          });
}

TEST(DataFile, WhenEverythingFailsFromACallOnTheOldOneStandsOrTheNewOneIsThere) {
    testing::failEachCall(diskWithTheOldFile(), EIO, Lasting::fromThenOn, writeNewBytes,
                          [](const MemoryFileSystem& files, bool succeeded) {
                              EXPECT_EQ(files.disk().contents(file), succeeded ? newBytes : oldBytes);
                              EXPECT_EQ(files.disk().mode(file), 0600U);
                          });
}

TEST(DataFile, ADiskThatIsFullFromTheFirstOrAnyLaterByteLeavesTheOldOneAndNoTemporary) {
    for (std::size_t space = 0; space < newBytes.size(); ++space) {
        MemoryFileSystem files(diskWithTheOldFile());
        files.faults().shorten(FileOperation::write, 1, space, Lasting::once);
        files.faults().fail(FileOperation::write, space == 0 ? 1 : 2, ENOSPC, Lasting::fromThenOn);
        EXPECT_EQ(std::get<SystemError>(writeNewBytes(files).error()).number, ENOSPC);
        EXPECT_EQ(files.disk().contents(file), oldBytes);
        EXPECT_THAT(files.disk().names(folder), ElementsAre("file"));
    }
}

TEST(DataFile, APowerCutLeavesTheOldOneOrTheNewOneWholeAndAReportedOneStays) {
    const auto judge = [](const MemoryDisk& left, bool reported) {
        const auto bytes = left.contents(file);
        EXPECT_TRUE(bytes == newBytes || (bytes == oldBytes && !reported));
        EXPECT_EQ(left.mode(file), 0600U);
    };
    testing::cutPowerAfterEachCall(diskWithTheOldFile(), writeNewBytes, judge);
}

TEST(DataFile, APowerCutLeavesAFirstOneWholeOrNoneAndAReportedOneStays) {
    const auto judge = [](const MemoryDisk& left, bool reported) {
        const auto bytes = left.contents(file);
        EXPECT_TRUE(bytes == newBytes || (!bytes && !reported));
    };
    testing::cutPowerAfterEachCall(emptyDisk(), writeNewBytes, judge);
}

TEST(DataFile, ATemporaryThatAPowerCutLeavesIsHidden) {
    testing::cutPowerAfterEachCall(emptyDisk(), writeNewBytes, [](const MemoryDisk& left, bool) {
        for (const std::string& name : left.names(folder))
            EXPECT_TRUE(name == "file" || name.starts_with(".file.")) << name;
    });
}

TEST(DataFile, WhetherThereIsOneIsKnownUnlessTheSystemCannotTell) {
    MemoryFileSystem files(diskWithTheOldFile());
    EXPECT_EQ(statusIfPresent(file, files).value()->size, oldBytes.size());
    for (const int missing : {ENOENT, ENOTDIR, ELOOP}) {
        files.faults().fail(FileOperation::status, 1, missing, Lasting::once);
        EXPECT_EQ(statusIfPresent(file, files).value(), std::nullopt) << missing;
    }
    for (const int unknown : {EACCES, EIO, ENAMETOOLONG}) {
        files.faults().fail(FileOperation::status, 1, unknown, Lasting::once);
        EXPECT_EQ(statusIfPresent(file, files).error(), Error(SystemError{"status", file, unknown}));
    }
}

TEST(DataFile, SyncingAFolderFailsUnlessTheFileSystemCannotDoSoAtAll) {
    MemoryFileSystem files(emptyDisk());
    for (const auto& [number, isFine] : {std::pair(EINVAL, true), {EIO, false}, {ENOSPC, false}}) {
        files.faults().fail(FileOperation::sync, 1, number, Lasting::once);
        EXPECT_EQ(syncDirectory(folder, files).has_value(), isFine) << number;
    }
    EXPECT_FALSE(syncDirectory("/missing", files));
    EXPECT_FALSE(files.isAnyDescriptorOpen());
}

TEST(DataFile, OneThatIsWrittenDurablyHasTheModeOfTheOtherAndANameThatSurvives) {
    MemoryFileSystem files(emptyDisk());
    files.disk().plant(folder / "like", "", 0600);
    ASSERT_TRUE(writeFileDurably(file, "bytes", folder / "like", files));
    EXPECT_EQ(files.disk().mode(file), 0600U);
    for (const MemoryDisk& left : files.disk().afterPowerCut())
        EXPECT_EQ(left.contents(file), "bytes");
}

TEST(DataFile, OneWhoseNameCannotBeMadeDurableIsReported) {
    MemoryFileSystem files(emptyDisk());
    files.faults().fail(FileOperation::sync, 2, EIO, Lasting::once);
    EXPECT_EQ(writeFileDurably(file, "bytes", file, files).error(), Error(SystemError{"sync", folder, EIO}));
}

TEST(DataFile, SweepingTakesTheTemporariesOfThatFileAlone) {
    MemoryFileSystem files(emptyDisk());
    const std::string own = "." + file.filename().string() + ".";
    const std::vector<std::string> others = {".other.1.tmp", own,   own + "1",
                                             own + "1.tmp~", "tmp", file.filename().string() + ".1.tmp"};
    for (const std::string& name : others)
        files.disk().plant(folder / name, "");
    for (const char* name : {"1.tmp", ".tmp", "E621E1F8-C36C-495A-93FC-0C247A3E6E5F.tmp"})
        files.disk().plant(folder / (own + name), "");
    sweepTemporaries(file, files);
    EXPECT_THAT(files.disk().names(folder), ::testing::UnorderedElementsAreArray(others));
}

TEST(DataFile, SweepingWhatCannotBeReadOrRemovedDoesNothing) {
    MemoryFileSystem files(emptyDisk());
    const std::string leftover = "." + file.filename().string() + ".1.tmp";
    files.disk().plant(folder / leftover, "");
    files.faults().fail(FileOperation::names, 1, EIO, Lasting::once);
    sweepTemporaries(file, files);
    files.faults().fail(FileOperation::remove, 1, EIO, Lasting::once);
    sweepTemporaries(file, files);
    EXPECT_THAT(files.disk().names(folder), ::testing::ElementsAre(leftover));
}

/// On the real file system, where links, FIFOs and devices are.
struct RealDataFile : ::testing::Test {
    ScratchFolder scratch;
    FileSystem& files = systemFileSystem();
    FileURL path = scratch / "file";

    static void write(const FileURL& to, const std::string& contents) { std::ofstream(to) << contents; }
    static void setMode(const FileURL& of, unsigned mode) {
        std::filesystem::permissions(of, std::filesystem::perms(mode));
    }
    unsigned mode() { return files.status(path).value().mode; }
};

TEST_F(RealDataFile, IsWrittenAndReadBackAndNothingElseIsLeft) {
    ASSERT_TRUE(writeFileAtomically(path, newBytes, files));
    EXPECT_EQ(readFile(path, files), newBytes);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(scratch.path()), {}), 1);
}

TEST_F(RealDataFile, AFirstOneObeysTheUmaskAndAReplacedOneKeepsItsMode) {
    const mode_t before = ::umask(0027);
    ASSERT_TRUE(writeFileAtomically(path, oldBytes, files));
    EXPECT_EQ(mode(), 0640U);
    setMode(path, 0666);
    ASSERT_TRUE(writeFileAtomically(path, newBytes, files));
    EXPECT_EQ(mode(), 0666U);
    ::umask(before);
}

TEST_F(RealDataFile, AFifoInItsPlaceFailsAtOnceAndIsReplacedAtOnce) {
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    EXPECT_EQ(numberOf(readFile(path, files)), EINVAL);
    ASSERT_TRUE(writeFileAtomically(path, newBytes, files));
    EXPECT_EQ(readFile(path, files), newBytes);
}

TEST_F(RealDataFile, AFolderInItsPlaceFailsAndStays) {
    std::filesystem::create_directory(path);
    EXPECT_EQ(numberOf(readFile(path, files)), EINVAL);
    EXPECT_FALSE(writeFileAtomically(path, newBytes, files));
    EXPECT_TRUE(std::filesystem::is_directory(path));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(scratch.path()), {}), 1);
}

TEST_F(RealDataFile, AnEndlessDeviceInItsPlaceFailsAtOnce) {
    std::filesystem::create_symlink("/dev/zero", path);
    EXPECT_EQ(numberOf(readFile(path, files)), EINVAL);
}

TEST_F(RealDataFile, ALinkIsReadThroughButReplacedItself) {
    const FileURL real = scratch / "real";
    write(real, oldBytes);
    std::filesystem::create_symlink(real, path);
    EXPECT_EQ(readFile(path, files), oldBytes);
    ASSERT_TRUE(writeFileAtomically(path, newBytes, files));
    EXPECT_FALSE(std::filesystem::is_symlink(path));
    EXPECT_EQ(readFile(path, files), newBytes);
    EXPECT_EQ(readFile(real, files), oldBytes);
}

TEST_F(RealDataFile, ADanglingLinkIsMissingAndReplaced) {
    std::filesystem::create_symlink(scratch / "nowhere", path);
    EXPECT_EQ(numberOf(readFile(path, files)), ENOENT);
    ASSERT_TRUE(writeFileAtomically(path, newBytes, files));
    EXPECT_EQ(readFile(path, files), newBytes);
    EXPECT_FALSE(std::filesystem::exists(scratch / "nowhere"));
}

TEST_F(RealDataFile, ALinkToItselfIsReplaced) {
    std::filesystem::create_symlink(path, path);
    EXPECT_EQ(numberOf(readFile(path, files)), ELOOP);
    ASSERT_TRUE(writeFileAtomically(path, newBytes, files));
    EXPECT_EQ(readFile(path, files), newBytes);
}

} // namespace
} // namespace vantel
