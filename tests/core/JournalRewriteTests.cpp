#include "core/RedoCopy.h"
#include "core/WidgetJournal.h"
#include "core/WidgetShared.h"
#include "tests/core/SampleJournal.h"
#include "tests/fakes/FaultSweep.h"
#include "tests/fakes/ScopedEnvironment.h"

#include <algorithm>
#include <map>

#include <gmock/gmock.h>

/// A rewrite of the journal that ended anywhere, and what is found afterwards.
namespace vantel {
namespace {

using testing::cutPowerAfterEachCall;
using ::testing::ElementsAre;
using testing::failEachCall;
using testing::FileOperation;
using ::testing::IsSupersetOf;
using testing::Lasting;
using testing::MemoryDisk;
using testing::MemoryFileSystem;
using testing::sampleEntry;
using testing::sampleLine;
using testing::sampleUuid;

using Entries = std::vector<WidgetJournalEntry>;

struct UnfinishedRewrite : ::testing::Test {
    testing::ScopedEnvironment dataHome{"XDG_DATA_HOME", "/data"};
    FileURL file = WidgetShared::journalURL().value();
    FileURL copy = RedoCopy::copyURL(file);

    /// A journal of three entries, of which the second is about to be removed.
    MemoryDisk before() const {
        MemoryDisk disk;
        disk.plant(file, sampleLine(1) + sampleLine(2) + sampleLine(3));
        return disk;
    }

    static Result<void> removeSecond(FileSystem& files) {
        return WidgetJournal::remove({sampleUuid(2)}, files);
    }

    static Entries pending(const MemoryDisk& disk) {
        MemoryFileSystem files(disk);
        return WidgetJournal::pending(files).value();
    }

    /// Every disk on which a process was killed within the removal.
    std::vector<MemoryDisk> afterKills() const {
        std::vector<MemoryDisk> disks;
        failEachCall(before(), EIO, Lasting::fromThenOn, removeSecond,
                     [&](const MemoryFileSystem& files, bool) { disks.push_back(files.disk()); });
        return disks;
    }

    /// The kill after which the copy stands and the journal is empty.
    MemoryDisk truncated() const {
        for (const MemoryDisk& disk : afterKills())
            if (disk.contents(copy) && disk.contents(file)->empty())
                return disk;
        ADD_FAILURE() << "no kill leaves a truncated journal";
        return {};
    }

    std::vector<std::string> names(const MemoryFileSystem& files) const {
        return files.disk().names(file.parent_path());
    }
};

TEST_F(UnfinishedRewrite, AKillAnywhereLosesNoOtherEntry) {
    for (const MemoryDisk& killed : afterKills())
        EXPECT_THAT(pending(killed), IsSupersetOf({sampleEntry(1), sampleEntry(3)}));
}

TEST_F(UnfinishedRewrite, IsFinishedByEveryOperationBeforeItsOwnWork) {
    const std::pair<Result<void> (*)(FileSystem&), std::string> operations[] = {
        {[](FileSystem& on) { return WidgetJournal::append(sampleEntry(4), on); },
         sampleLine(1) + sampleLine(3) + sampleLine(4)},
        {[](FileSystem& on) { return WidgetJournal::remove({sampleUuid(1)}, on); }, sampleLine(3)},
        {[](FileSystem& on) { return WidgetJournal::remove({sampleUuid(9)}, on); },
         sampleLine(1) + sampleLine(3)},
        {[](FileSystem& on) { return WidgetJournal::removeAll(on); }, ""},
        {[](FileSystem& on) {
             const auto entries = WidgetJournal::pending(on);
             EXPECT_EQ(entries.value(), (Entries{sampleEntry(1), sampleEntry(3)}));
             return Result<void>();
         },
         sampleLine(1) + sampleLine(3)}};
    for (const auto& [operate, after] : operations) {
        MemoryFileSystem files(truncated());
        ASSERT_TRUE(operate(files));
        EXPECT_EQ(files.disk().contents(file), after);
        EXPECT_THAT(names(files), ElementsAre(file.filename()));
    }
}

TEST_F(UnfinishedRewrite, OneWhoseLinesAreAllInPlaceIsSyncedAndNotWrittenAgain) {
    MemoryDisk disk = truncated();
    disk.plant(file, sampleLine(1) + sampleLine(3));
    MemoryFileSystem files(disk);
    ASSERT_TRUE(WidgetJournal::pending(files));
    EXPECT_EQ(std::ranges::count(files.faults().calls(), FileOperation::write), 0);
    EXPECT_EQ(std::ranges::count(files.faults().calls(), FileOperation::syncData), 1);
    EXPECT_THAT(names(files), ElementsAre(file.filename()));
}

/// A program from before there were redo copies sees the journal alone: it mends a torn last line and
/// appends.
std::string appendedByAnOlderProgram(std::string bytes) {
    if (!bytes.empty() && !bytes.ends_with('\n'))
        bytes += '\n';
    return bytes + sampleLine(4);
}

TEST_F(UnfinishedRewrite, KeepsWhatAProgramThatKnowsNoCopyHasAppended) {
    for (const MemoryDisk& killed : afterKills()) {
        MemoryDisk disk = killed;
        disk.plant(file, appendedByAnOlderProgram(*killed.contents(file)));
        EXPECT_THAT(pending(disk), IsSupersetOf({sampleEntry(1), sampleEntry(3), sampleEntry(4)}));
    }
}

TEST_F(UnfinishedRewrite, IsFinishedWithTheLinesThatCameMeanwhile) {
    MemoryDisk disk = truncated();
    disk.plant(file, sampleLine(4));
    MemoryFileSystem files(disk);
    ASSERT_TRUE(WidgetJournal::append(sampleEntry(5), files));
    EXPECT_EQ(files.disk().contents(file), sampleLine(1) + sampleLine(3) + sampleLine(4) + sampleLine(5));
    EXPECT_THAT(names(files), ElementsAre(file.filename()));
}

TEST_F(UnfinishedRewrite, LeavesTheJournalAloneWhereTheseLinesCannotBeCopied) {
    MemoryDisk disk = truncated();
    disk.plant(file, sampleLine(4));
    MemoryFileSystem files(disk);
    files.faults().fail(FileOperation::write, 1, ENOSPC, Lasting::once);
    EXPECT_FALSE(WidgetJournal::append(sampleEntry(5), files));
    EXPECT_EQ(files.disk().contents(file), sampleLine(4));
    EXPECT_THAT(pending(files.disk()), ElementsAre(sampleEntry(1), sampleEntry(3), sampleEntry(4)));
}

TEST_F(UnfinishedRewrite, KeepsItThoughFinishingIsKilledAnywhereToo) {
    for (const MemoryDisk& killed : afterKills()) {
        MemoryDisk disk = killed;
        disk.plant(file, appendedByAnOlderProgram(*killed.contents(file)));
        const auto next = [](FileSystem& files) { return WidgetJournal::append(sampleEntry(5), files); };
        failEachCall(disk, EIO, Lasting::fromThenOn, next, [](const MemoryFileSystem& files, bool) {
            EXPECT_THAT(pending(files.disk()),
                        IsSupersetOf({sampleEntry(1), sampleEntry(3), sampleEntry(4)}));
        });
    }
}

TEST_F(UnfinishedRewrite, KeepsItThoughThePowerGoesWhileItIsFinished) {
    MemoryDisk disk = truncated();
    disk.plant(file, sampleLine(4));
    const auto next = [](FileSystem& files) { return WidgetJournal::append(sampleEntry(5), files); };
    cutPowerAfterEachCall(disk, next, [](const MemoryDisk& left, bool reported) {
        const Entries found = pending(left);
        EXPECT_THAT(found, IsSupersetOf({sampleEntry(1), sampleEntry(3), sampleEntry(4)}));
        EXPECT_TRUE(!reported || std::ranges::count(found, sampleEntry(5)) == 1);
    });
}

/// What the first cut left is sampled: all of it, times all that the second may leave, takes minutes.
TEST_F(UnfinishedRewrite, ThePowerMayGoTwiceInTheRemovalAndWhileItIsFinished) {
    std::map<std::string, MemoryDisk> left;
    cutPowerAfterEachCall(before(), removeSecond, [&](const MemoryDisk& once, bool) {
        if (once.contents(copy))
            left.emplace(*once.contents(file), once);
    });
    ASSERT_GT(left.size(), 300U);
    const auto read = [](FileSystem& files) { return WidgetJournal::pending(files); };
    for (auto once = left.begin(); std::distance(once, left.end()) > 150; std::advance(once, 150))
        cutPowerAfterEachCall(once->second, read, [](const MemoryDisk& twice, bool) {
            EXPECT_THAT(pending(twice), ElementsAre(sampleEntry(1), sampleEntry(3)));
        });
}

/// A disk may forget that a file was removed. Nothing that was appended since is lost by that.
TEST_F(UnfinishedRewrite, ACopyThatComesBackTakesNothingAway) {
    MemoryDisk disk = truncated();
    disk.plant(file, sampleLine(3) + sampleLine(4) + sampleLine(5));
    EXPECT_THAT(pending(disk), IsSupersetOf({sampleEntry(3), sampleEntry(4), sampleEntry(5)}));
}

TEST_F(UnfinishedRewrite, ReadingGivesAllEntriesThoughTheRewriteCannotBeFinished) {
    const auto changing = {FileOperation::truncate, FileOperation::seek, FileOperation::write,
                           FileOperation::syncData, FileOperation::remove};
    for (const FileOperation operation : changing) {
        MemoryFileSystem files(truncated());
        files.faults().fail(operation, 1, EACCES, Lasting::fromThenOn);
        EXPECT_EQ(WidgetJournal::pending(files).value(), (Entries{sampleEntry(1), sampleEntry(3)}));
    }
}

/// An entry that is in the journal alone while the copy still stands could be lost to the next crash.
TEST_F(UnfinishedRewrite, AnAppendFailsWhereTheRewriteCannotBeFinished) {
    for (const FileOperation operation :
         {FileOperation::truncate, FileOperation::write, FileOperation::remove}) {
        MemoryFileSystem files(truncated());
        files.faults().fail(operation, 1, EACCES, Lasting::fromThenOn);
        EXPECT_FALSE(WidgetJournal::append(sampleEntry(4), files)) << name(operation);
        EXPECT_THAT(pending(files.disk()), ElementsAre(sampleEntry(1), sampleEntry(3)));
    }
}

TEST_F(UnfinishedRewrite, WhateverFailsInFinishingLosesNothing) {
    const auto append = [](FileSystem& files) { return WidgetJournal::append(sampleEntry(4), files); };
    for (const Lasting lasting : {Lasting::once, Lasting::fromThenOn})
        failEachCall(truncated(), EIO, lasting, append, [](const MemoryFileSystem& files, bool succeeded) {
            const Entries found = pending(files.disk());
            EXPECT_THAT(found, IsSupersetOf({sampleEntry(1), sampleEntry(3)}));
            EXPECT_TRUE(!succeeded || std::ranges::count(found, sampleEntry(4)) == 1);
        });
}

} // namespace
} // namespace vantel
