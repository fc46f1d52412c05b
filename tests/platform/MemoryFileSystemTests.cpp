#include "tests/fakes/MemoryFileSystem.h"

#include <cerrno>
#include <set>

#include <gmock/gmock.h>
#include <gtest/gtest-spi.h>

namespace vantel::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Optional;
using ::testing::UnorderedElementsAre;

const FileURL folder = "/home/data";
const FileURL file = folder / "file";

int numberOf(const Error& error) {
    return std::get<SystemError>(error).number;
}

std::set<std::string> possibleContents(const MemoryFileSystem& files) {
    std::set<std::string> result;
    for (const MemoryDisk& disk : files.disk().afterPowerCut())
        result.insert(disk.contents(file).value_or("missing"));
    return result;
}

struct MemoryFiles : ::testing::Test {
    MemoryFileSystem files;

    FileSystem::Descriptor openPlanted(const std::string& contents) {
        files.disk().plant(file, contents);
        return files.open(file, OpenMode::lock).value();
    }
};

TEST_F(MemoryFiles, WhatIsWrittenIsReadBack) {
    const auto descriptor = openPlanted("");
    EXPECT_EQ(files.write(descriptor, "hello"), 5U);
    ASSERT_TRUE(files.seek(descriptor, 1));
    std::string bytes(3, ' ');
    EXPECT_EQ(files.read(descriptor, bytes), 3U);
    EXPECT_EQ(bytes, "ell");
    EXPECT_EQ(files.readAt(descriptor, 4, bytes), 1U);
    EXPECT_EQ(files.read(descriptor, bytes), 1U);
    EXPECT_EQ(files.read(descriptor, bytes), 0U);
}

TEST_F(MemoryFiles, AWriteBeyondTheEndFillsTheGapWithZeros) {
    const auto descriptor = openPlanted("ab");
    ASSERT_TRUE(files.seek(descriptor, 4));
    ASSERT_TRUE(files.write(descriptor, "e"));
    EXPECT_THAT(files.disk().contents(file), Optional(std::string("ab\0\0e", 5)));
}

TEST_F(MemoryFiles, OpeningSaysWhatALinuxWouldSay) {
    files.disk().plant(file, "");
    EXPECT_EQ(numberOf(files.open("/home/missing", OpenMode::read).error()), ENOENT);
    EXPECT_EQ(numberOf(files.open("/missing/file", OpenMode::lock).error()), ENOENT);
    EXPECT_EQ(numberOf(files.open(file, OpenMode::writeNew).error()), EEXIST);
    EXPECT_EQ(numberOf(files.open(file, OpenMode::readDirectory).error()), ENOTDIR);
    EXPECT_EQ(numberOf(files.open(folder, OpenMode::lock).error()), EISDIR);
    EXPECT_EQ(numberOf(files.open(folder, OpenMode::writeNew).error()), EEXIST);
    EXPECT_EQ(numberOf(files.createDirectories(file / "below").error()), ENOTDIR);
    EXPECT_EQ(numberOf(files.remove("/home/missing").error()), ENOENT);
    EXPECT_EQ(numberOf(files.remove(folder).error()), EISDIR);
    EXPECT_EQ(numberOf(files.rename(file, folder).error()), EISDIR);
}

TEST_F(MemoryFiles, ARemovedFileLivesOnWhileItIsOpen) {
    const auto descriptor = openPlanted("abc");
    ASSERT_TRUE(files.remove(file));
    std::string bytes(3, ' ');
    EXPECT_EQ(files.read(descriptor, bytes), 3U);
    EXPECT_EQ(bytes, "abc");
    EXPECT_EQ(files.disk().contents(file), std::nullopt);
}

TEST_F(MemoryFiles, OnlyTheNthCallFails) {
    files.faults().fail(2, ENOMEM, Lasting::once);
    EXPECT_TRUE(files.createDirectories(folder));
    EXPECT_EQ(numberOf(files.createDirectories(folder).error()), ENOMEM);
    EXPECT_TRUE(files.createDirectories(folder));
}

TEST_F(MemoryFiles, EveryCallFromTheNthOfOneOperationFails) {
    files.faults().fail(FileOperation::status, 2, EIO, Lasting::fromThenOn);
    EXPECT_TRUE(files.createDirectories(folder));
    EXPECT_TRUE(files.status(folder));
    EXPECT_EQ(numberOf(files.status(folder).error()), EIO);
    EXPECT_TRUE(files.createDirectories(folder));
    EXPECT_EQ(numberOf(files.status(folder).error()), EIO);
}

TEST_F(MemoryFiles, ATornWriteTakesOnlyItsFirstBytes) {
    const auto descriptor = openPlanted("");
    files.faults().shorten(FileOperation::write, 1, 2, Lasting::once);
    EXPECT_EQ(files.write(descriptor, "abcd"), 2U);
    EXPECT_EQ(files.write(descriptor, "cd"), 2U);
    EXPECT_THAT(files.disk().contents(file), Optional(std::string("abcd")));
}

TEST_F(MemoryFiles, TheCallsAreRecordedInTheirOrder) {
    files.faults().fail(2, EIO, Lasting::once);
    ASSERT_TRUE(files.createDirectories(folder));
    ASSERT_FALSE(files.open(file, OpenMode::lock));
    EXPECT_THAT(files.faults().calls(), ElementsAre(FileOperation::createDirectories, FileOperation::open));
}

TEST_F(MemoryFiles, OpenDescriptorsAndHeldLocksAreKnown) {
    EXPECT_FALSE(files.isAnyDescriptorOpen());
    const auto descriptor = openPlanted("");
    EXPECT_TRUE(files.isAnyDescriptorOpen());
    EXPECT_FALSE(files.isAnyLockHeld());
    ASSERT_TRUE(files.lock(descriptor));
    EXPECT_TRUE(files.isAnyLockHeld());
    ASSERT_TRUE(files.unlock(descriptor));
    EXPECT_FALSE(files.isAnyLockHeld());
    ASSERT_TRUE(files.close(descriptor));
    EXPECT_FALSE(files.isAnyDescriptorOpen());
}

TEST_F(MemoryFiles, AFailedCloseHasClosedAndUnlocked) {
    const auto descriptor = openPlanted("");
    ASSERT_TRUE(files.lock(descriptor));
    files.faults().fail(FileOperation::close, 1, EIO, Lasting::once);
    EXPECT_FALSE(files.close(descriptor));
    EXPECT_FALSE(files.isAnyDescriptorOpen());
    EXPECT_FALSE(files.isAnyLockHeld());
}

TEST_F(MemoryFiles, LockingALockedFileThroughAnotherDescriptorFailsTheTest) {
    const auto first = openPlanted("");
    const auto second = files.open(file, OpenMode::lock).value();
    ASSERT_TRUE(files.lock(first));
    ASSERT_TRUE(files.lock(first));
    EXPECT_NONFATAL_FAILURE(EXPECT_FALSE(files.lock(second)), "would wait for ever");
    ASSERT_TRUE(files.unlock(first));
    EXPECT_TRUE(files.lock(second));
}

TEST_F(MemoryFiles, UsingAClosedDescriptorFailsTheTest) {
    const auto descriptor = openPlanted("");
    ASSERT_TRUE(files.close(descriptor));
    EXPECT_NONFATAL_FAILURE(EXPECT_FALSE(files.seek(descriptor, 0)), "not open");
}

TEST_F(MemoryFiles, APowerCutKeepsSyncedBytes) {
    const auto descriptor = openPlanted("");
    ASSERT_TRUE(files.write(descriptor, "ab"));
    ASSERT_TRUE(files.syncData(descriptor));
    EXPECT_THAT(possibleContents(files), ElementsAre("ab"));
}

TEST_F(MemoryFiles, APowerCutKeepsAnyPartOfAnUnsyncedWriteOrZeros) {
    const auto descriptor = openPlanted("a");
    ASSERT_TRUE(files.seekToEnd(descriptor));
    ASSERT_TRUE(files.write(descriptor, "bc"));
    EXPECT_THAT(possibleContents(files),
                UnorderedElementsAre("a", "ab", "abc", std::string("ab\0", 3), std::string("a\0\0", 3)));
}

TEST_F(MemoryFiles, APowerCutMayBringBackWhatWasTruncatedWithoutASync) {
    const auto descriptor = openPlanted("a");
    ASSERT_TRUE(files.truncate(descriptor, 0));
    EXPECT_THAT(possibleContents(files), UnorderedElementsAre("a", ""));
}

TEST_F(MemoryFiles, APowerCutMayLoseAnUnsyncedName) {
    ASSERT_TRUE(files.createDirectories(folder));
    const auto descriptor = files.open(file, OpenMode::writeNew).value();
    ASSERT_TRUE(files.write(descriptor, "a"));
    ASSERT_TRUE(files.sync(descriptor));
    EXPECT_THAT(possibleContents(files), UnorderedElementsAre("missing", "a"));
    ASSERT_TRUE(files.sync(files.open(folder, OpenMode::readDirectory).value()));
    EXPECT_THAT(possibleContents(files), ElementsAre("a"));
}

TEST_F(MemoryFiles, APowerCutMayBringBackTheOldFileOfAReplacedName) {
    files.disk().plant(file, "old");
    files.disk().plant(folder / "temporary", "new");
    ASSERT_TRUE(files.rename(folder / "temporary", file));
    EXPECT_THAT(possibleContents(files), UnorderedElementsAre("old", "new"));
    EXPECT_THAT(files.disk().names(folder), ElementsAre("file"));
}

TEST_F(MemoryFiles, APowerCutMayLeaveBothNamesOfARenamedFileOrNeither) {
    files.disk().makeFolders(folder);
    const auto descriptor = files.open(folder / "temporary", OpenMode::writeNew).value();
    ASSERT_TRUE(files.rename(folder / "temporary", file));
    ASSERT_TRUE(files.close(descriptor));
    std::vector<std::vector<std::string>> names;
    for (const MemoryDisk& disk : files.disk().afterPowerCut())
        names.push_back(disk.names(folder));
    EXPECT_THAT(names, UnorderedElementsAre(ElementsAre("file", "temporary"), ElementsAre("file"),
                                            ElementsAre("temporary"), IsEmpty()));
}

TEST_F(MemoryFiles, APowerCutAtRandomLeavesEachPossibleDiskInTheEndAndNoOther) {
    const auto descriptor = openPlanted("a");
    ASSERT_TRUE(files.seekToEnd(descriptor));
    ASSERT_TRUE(files.write(descriptor, "bc"));
    std::mt19937 random(1);
    std::set<std::string> found;
    for (int i = 0; i < 200; ++i)
        found.insert(files.disk().afterPowerCut(random).contents(file).value());
    EXPECT_THAT(found, ::testing::UnorderedElementsAreArray(possibleContents(files)));
}

TEST_F(MemoryFiles, APowerCutMayBringBackARemovedFile) {
    files.disk().plant(file, "old");
    ASSERT_TRUE(files.remove(file));
    EXPECT_THAT(possibleContents(files), UnorderedElementsAre("old", "missing"));
    EXPECT_THAT(files.disk().names(folder), IsEmpty());
}

TEST_F(MemoryFiles, ACopiedDiskIsItsOwn) {
    files.disk().plant(file, "old");
    MemoryFileSystem other(files.disk());
    ASSERT_TRUE(other.remove(file));
    EXPECT_THAT(files.disk().contents(file), Optional(std::string("old")));
}

} // namespace
} // namespace vantel::testing
