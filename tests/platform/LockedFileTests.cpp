#include "platform/LockedFile.h"
#include "tests/fakes/ChildProcess.h"
#include "tests/fakes/FaultSweep.h"
#include "tests/fakes/LockProbe.h"
#include "tests/fakes/ScratchFolder.h"

#include <gmock/gmock.h>

namespace vantel {
namespace {

using ::testing::ElementsAre;
using testing::FileOperation;
using testing::isFree;
using testing::Lasting;
using testing::MemoryFileSystem;
using testing::ScratchFolder;

const FileURL file = "/data/container/file";

TEST(LockedFile, IsMadeOpenedAndLockedThenUnlockedBeforeItIsClosed) {
    MemoryFileSystem files;
    {
        const auto locked = LockedFile::acquire(file, files);
        ASSERT_TRUE(locked);
        EXPECT_TRUE(files.isAnyLockHeld());
    }
    EXPECT_THAT(files.faults().calls(),
                ElementsAre(FileOperation::createDirectories, FileOperation::open, FileOperation::lock,
                            FileOperation::isNamed, FileOperation::unlock, FileOperation::close));
    EXPECT_FALSE(files.isAnyDescriptorOpen());
}

TEST(LockedFile, ItsHandleReadsAndWritesTheFile) {
    MemoryFileSystem files;
    files.disk().plant(file, "old");
    auto locked = LockedFile::acquire(file, files);
    ASSERT_TRUE(locked);
    EXPECT_EQ(locked->handle().readToEnd(), "old");
    ASSERT_TRUE(locked->handle().write(" and new"));
    EXPECT_EQ(files.disk().contents(file), "old and new");
}

TEST(LockedFile, AcquiringLeavesTheBytesAlone) {
    MemoryFileSystem files;
    files.disk().plant(file, "kept");
    ASSERT_TRUE(LockedFile::acquire(file, files));
    EXPECT_EQ(files.disk().contents(file), "kept");
}

TEST(LockedFile, AMovedOneHoldsTheLockOnce) {
    MemoryFileSystem files;
    {
        auto first = LockedFile::acquire(file, files);
        ASSERT_TRUE(first);
        const LockedFile second = std::move(*first);
        first = std::unexpected(fileWriteUnknown());
        EXPECT_TRUE(files.isAnyLockHeld());
    }
    EXPECT_FALSE(files.isAnyDescriptorOpen());
}

TEST(LockedFile, AFailureOfTheFoldersIsHandedUpUnchanged) {
    MemoryFileSystem files;
    files.faults().fail(FileOperation::createDirectories, 1, EROFS, Lasting::once);
    EXPECT_EQ(LockedFile::acquire(file, files).error(),
              Error(SystemError{"createDirectories", "/data/container", EROFS}));
    EXPECT_THAT(files.faults().calls(), ElementsAre(FileOperation::createDirectories));
}

TEST(LockedFile, AFailureToOpenOrLockCarriesNoSystemError) {
    for (const FileOperation operation : {FileOperation::open, FileOperation::lock}) {
        MemoryFileSystem files;
        files.faults().fail(operation, 1, ENOLCK, Lasting::once);
        EXPECT_EQ(LockedFile::acquire(file, files).error(), fileWriteUnknown()) << name(operation);
        EXPECT_FALSE(files.isAnyDescriptorOpen()) << name(operation);
    }
}

TEST(LockedFile, WhateverCallFailsNothingStaysOpenOrLocked) {
    const auto acquire = [](FileSystem& files) -> Result<void> {
        const auto locked = LockedFile::acquire(file, files);
        return locked ? Result<void>() : std::unexpected(locked.error());
    };
    for (const Lasting lasting : {Lasting::once, Lasting::fromThenOn})
        testing::failEachCall({}, EIO, lasting, acquire, [](const MemoryFileSystem&, bool) {});
}

TEST(LockedFile, OthersWaitWhileItIsHeldAndOnlyThen) {
    const ScratchFolder folder;
    const FileURL path = folder / "container" / "file";
    {
        const auto locked = LockedFile::acquire(path, systemFileSystem());
        ASSERT_TRUE(locked);
        EXPECT_FALSE(isFree(path));
    }
    EXPECT_TRUE(isFree(path));
}

TEST(LockedFile, AChildThatInheritedTheDescriptorKeepsNoLock) {
    const ScratchFolder folder;
    const FileURL path = folder / "file";
    auto locked = LockedFile::acquire(path, systemFileSystem());
    ASSERT_TRUE(locked);
    const testing::ChildProcess child("/bin/cat", {});
    EXPECT_FALSE(isFree(path));
    locked = std::unexpected(fileWriteUnknown());
    EXPECT_TRUE(isFree(path));
}

TEST(LockedFile, WhatIsNotAFileCannotBeLocked) {
    const ScratchFolder folder;
    std::filesystem::create_directory(folder / "file");
    const auto locked = LockedFile::acquire(folder / "file", systemFileSystem());
    ASSERT_FALSE(locked);
    EXPECT_EQ(locked.error(), fileWriteUnknown());
}

} // namespace
} // namespace vantel
