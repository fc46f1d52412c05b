#include "core/WidgetJournal.h"
#include "core/WidgetShared.h"
#include "tests/core/SampleJournal.h"
#include "tests/fakes/FaultSweep.h"
#include "tests/fakes/ScopedEnvironment.h"

#include <algorithm>

#include <gmock/gmock.h>

/// The journal on a disk that fails, fills up and loses its power: at every call of every operation.
namespace vantel {
namespace {

using ::testing::AnyOf;
using testing::cutPowerAfterEachCall;
using ::testing::ElementsAre;
using ::testing::Eq;
using testing::failEachCall;
using testing::FileOperation;
using ::testing::IsSubsetOf;
using testing::Lasting;
using testing::MemoryDisk;
using testing::MemoryFileSystem;
using testing::sampleEntry;
using testing::sampleLine;
using testing::sampleUuid;

using Entries = std::vector<WidgetJournalEntry>;

struct JournalFaults : ::testing::Test {
    testing::ScopedEnvironment dataHome{"XDG_DATA_HOME", "/data"};
    FileURL file = WidgetShared::journalURL().value();

    MemoryDisk diskWith(const std::string& contents) const {
        MemoryDisk disk;
        disk.plant(file, contents);
        return disk;
    }

    std::string contents(const MemoryFileSystem& files) const {
        return files.disk().contents(file).value_or("");
    }

    static Entries pending(const MemoryDisk& disk) {
        MemoryFileSystem files(disk);
        return WidgetJournal::pending(files).value();
    }

    static Result<void> appendThird(FileSystem& files) {
        return WidgetJournal::append(sampleEntry(3), files);
    }
    static Result<void> removeSecond(FileSystem& files) {
        return WidgetJournal::remove({sampleUuid(2)}, files);
    }
    static Result<void> removeAll(FileSystem& files) { return WidgetJournal::removeAll(files); }
    static Result<Entries> readAll(FileSystem& files) { return WidgetJournal::pending(files); }

    /// What a journal may hold when an entry is appended: nothing yet, whole lines, and a torn last line.
    const std::vector<std::string> beginnings = {"", sampleLine(1), sampleLine(1) + sampleLine(2),
                                                 sampleLine(1) + sampleLine(2).substr(0, 30),
                                                 sampleLine(1) + std::string(7, '\0')};

    static std::string mended(const std::string& beginning) {
        return beginning.empty() || beginning.ends_with('\n') ? beginning : beginning + "\n";
    }
};

/// A torn last line is never glued to the line that is appended next.

TEST_F(JournalFaults, AfterATornLineOfAnyLengthTheNextLineIsWholeAndNoneBeforeItIsLost) {
    const std::string torn = sampleLine(2);
    for (std::size_t length = 0; length <= torn.size(); ++length) {
        MemoryFileSystem files(diskWith(sampleLine(1) + torn.substr(0, length)));
        ASSERT_TRUE(appendThird(files));
        Entries expected = {sampleEntry(1), sampleEntry(3)};
        if (length + 1 >= torn.size())
            expected.insert(expected.begin() + 1, sampleEntry(2));
        EXPECT_EQ(pending(files.disk()), expected) << length;
    }
}

TEST_F(JournalFaults, AfterATornLineAtTheVeryBeginningTheNextLineIsWhole) {
    for (std::size_t length = 1; length + 1 < sampleLine(2).size(); ++length) {
        MemoryFileSystem files(diskWith(sampleLine(2).substr(0, length)));
        ASSERT_TRUE(appendThird(files));
        EXPECT_THAT(pending(files.disk()), ElementsAre(sampleEntry(3))) << length;
    }
}

TEST_F(JournalFaults, AfterATornLineTheLineAndItsSeparatorGoOutInOneWrite) {
    MemoryFileSystem files(diskWith(sampleLine(1) + "torn"));
    ASSERT_TRUE(appendThird(files));
    EXPECT_EQ(contents(files), sampleLine(1) + "torn\n" + sampleLine(3));
    EXPECT_EQ(std::ranges::count(files.faults().calls(), FileOperation::write), 1);
}

/// Appending either has happened or left every byte as it was.

TEST_F(JournalFaults, AppendingThatFailsOnceLeavesEveryByteAsItWas) {
    for (const std::string& beginning : beginnings)
        for (const int number : {EIO, ENOSPC, EINTR})
            failEachCall(diskWith(beginning), number, Lasting::once, appendThird,
                         [&](const MemoryFileSystem& files, bool succeeded) {
                             EXPECT_EQ(contents(files),
                                       succeeded ? mended(beginning) + sampleLine(3) : beginning);
                         });
}

TEST_F(JournalFaults, AppendingToAMissingJournalThatFailsOnceLeavesNoLine) {
    failEachCall({}, EIO, Lasting::once, appendThird, [&](const MemoryFileSystem& files, bool succeeded) {
        EXPECT_EQ(contents(files), succeeded ? sampleLine(3) : "");
    });
}

TEST_F(JournalFaults, AppendingToADiskThatIsFullFromAnyByteOnIsRolledBack) {
    for (const std::string& beginning : beginnings)
        for (std::size_t space = 0; space < sampleLine(3).size(); ++space) {
            MemoryFileSystem files(diskWith(beginning));
            files.faults().shorten(FileOperation::write, 1, space, Lasting::once);
            files.faults().fail(FileOperation::write, 2, ENOSPC, Lasting::fromThenOn);
            const auto appended = appendThird(files);
            ASSERT_FALSE(appended);
            EXPECT_EQ(std::get<SystemError>(appended.error()).number, ENOSPC);
            EXPECT_EQ(contents(files), beginning);
        }
}

TEST_F(JournalFaults, AppendingThatCannotBeSyncedIsRolledBackAndNotSyncedAgain) {
    MemoryFileSystem files(diskWith(sampleLine(1)));
    files.faults().fail(FileOperation::syncData, 1, EIO, Lasting::once);
    EXPECT_EQ(appendThird(files).error(), Error(SystemError{"syncData", file, EIO}));
    EXPECT_EQ(contents(files), sampleLine(1));
    EXPECT_EQ(std::ranges::count(files.faults().calls(), FileOperation::syncData), 1);
}

TEST_F(JournalFaults, ALineThatWasRolledBackCanBeAppendedAgain) {
    MemoryFileSystem files(diskWith(sampleLine(1)));
    files.faults().fail(FileOperation::syncData, 1, EIO, Lasting::once);
    ASSERT_FALSE(appendThird(files));
    ASSERT_TRUE(appendThird(files));
    EXPECT_EQ(contents(files), sampleLine(1) + sampleLine(3));
}

/// When not even the rolling back works, the line that was written whole may stay; nothing else may.
TEST_F(JournalFaults, AppendingUnderWhichEverythingFailsFromACallOnLosesNoLine) {
    for (const std::string& beginning : beginnings)
        failEachCall(diskWith(beginning), EIO, Lasting::fromThenOn, appendThird,
                     [&](const MemoryFileSystem& files, bool succeeded) {
                         const std::string after = mended(beginning) + sampleLine(3);
                         if (succeeded)
                             EXPECT_EQ(contents(files), after);
                         else
                             EXPECT_THAT(contents(files), AnyOf(beginning, after));
                     });
}

/// Removing and reading.

TEST_F(JournalFaults, RemovingThatFailsOnceLeavesEveryByteAsItWas) {
    const std::string before = sampleLine(1) + "not an entry\n" + sampleLine(2) + sampleLine(3);
    for (const int number : {EIO, ENOSPC, EINTR})
        failEachCall(diskWith(before), number, Lasting::once, removeSecond,
                     [&](const MemoryFileSystem& files, bool succeeded) {
                         EXPECT_EQ(contents(files), succeeded ? sampleLine(1) + sampleLine(3) : before);
                     });
}

TEST_F(JournalFaults, RemovingWhoseRewriteTearsAndFailsPutsEveryByteBack) {
    const std::string before = sampleLine(1) + sampleLine(2) + sampleLine(3);
    for (std::size_t length = 1; length < sampleLine(1).size() * 2; ++length) {
        MemoryFileSystem files(diskWith(before));
        files.faults().shorten(FileOperation::write, 1, length, Lasting::once);
        files.faults().fail(FileOperation::write, 2, ENOSPC, Lasting::once);
        EXPECT_FALSE(removeSecond(files));
        EXPECT_EQ(contents(files), before) << length;
    }
}

TEST_F(JournalFaults, RemovingUnderWhichEverythingFailsFromACallOnLosesNoOtherEntry) {
    const std::string before = sampleLine(1) + sampleLine(2) + sampleLine(3);
    failEachCall(diskWith(before), EIO, Lasting::fromThenOn, removeSecond,
                 [&](const MemoryFileSystem& files, bool succeeded) {
                     const Entries found = pending(files.disk());
                     const Entries after = {sampleEntry(1), sampleEntry(3)};
                     const Entries all = {sampleEntry(1), sampleEntry(2), sampleEntry(3)};
                     EXPECT_TRUE(found == after || (found == all && !succeeded));
                 });
}

TEST_F(JournalFaults, RemovingAllThatFailsOnceLeavesEveryByteAsItWas) {
    const std::string before = sampleLine(1) + "torn";
    failEachCall(diskWith(before), EIO, Lasting::once, removeAll,
                 [&](const MemoryFileSystem& files, bool succeeded) {
                     EXPECT_EQ(contents(files), succeeded ? "" : before);
                 });
}

TEST_F(JournalFaults, RemovingAllUnderWhichEverythingFailsFromACallOnLeavesAllEntriesOrNone) {
    failEachCall(diskWith(sampleLine(1) + sampleLine(2)), EIO, Lasting::fromThenOn, removeAll,
                 [&](const MemoryFileSystem& files, bool succeeded) {
                     const Entries found = pending(files.disk());
                     EXPECT_TRUE(found.empty() || (found.size() == 2 && !succeeded));
                 });
}

TEST_F(JournalFaults, RemovingAllOfWhatCannotBeReadEmptiesItAllTheSame) {
    for (const FileOperation operation : {FileOperation::read, FileOperation::status}) {
        MemoryFileSystem files(diskWith(sampleLine(1)));
        files.faults().fail(operation, operation == FileOperation::read ? 1 : 2, EIO, Lasting::fromThenOn);
        EXPECT_TRUE(removeAll(files));
        EXPECT_EQ(contents(files), "");
    }
}

TEST_F(JournalFaults, RemovingAllOfWhatCannotBeReadIsReportedOnceItIsDurable) {
    MemoryFileSystem files(diskWith(sampleLine(1)));
    files.faults().fail(FileOperation::read, 1, EIO, Lasting::fromThenOn);
    ASSERT_TRUE(removeAll(files));
    for (const MemoryDisk& left : files.disk().afterPowerCut())
        EXPECT_EQ(left.contents(file), "");
}

TEST_F(JournalFaults, RemovingAllOfWhatCannotBeReadFailsWhereItCannotBeEmptiedOrSynced) {
    for (const FileOperation operation : {FileOperation::truncate, FileOperation::syncData}) {
        MemoryFileSystem files(diskWith(sampleLine(1)));
        files.faults().fail(FileOperation::read, 1, EIO, Lasting::fromThenOn);
        files.faults().fail(operation, 1, EIO, Lasting::once);
        EXPECT_FALSE(removeAll(files)) << name(operation);
    }
}

TEST_F(JournalFaults, ReadingThatFailsReportsItAndChangesNothing) {
    const std::string before = sampleLine(1) + "torn";
    for (const Lasting lasting : {Lasting::once, Lasting::fromThenOn})
        failEachCall(diskWith(before), EIO, lasting, readAll,
                     [&](const MemoryFileSystem& files, bool) { EXPECT_EQ(contents(files), before); });
}

TEST_F(JournalFaults, ReadingGivesAllEntriesOrAFailure) {
    for (const Lasting lasting : {Lasting::once, Lasting::fromThenOn})
        for (int nth = 1; nth < 10; ++nth) {
            MemoryFileSystem files(diskWith(sampleLine(1) + sampleLine(2)));
            files.faults().fail(nth, EIO, lasting);
            const Entries entries = readAll(files).value_or(Entries{sampleEntry(1), sampleEntry(2)});
            EXPECT_THAT(entries, ElementsAre(sampleEntry(1), sampleEntry(2))) << nth;
        }
}

/// A power cut at any moment.

TEST_F(JournalFaults, APowerCutWhileAppendingKeepsEveryEarlierEntryAndAReportedOne) {
    for (const std::string& beginning : beginnings) {
        const Entries before = pending(diskWith(beginning));
        Entries after = before;
        after.push_back(sampleEntry(3));
        cutPowerAfterEachCall(diskWith(beginning), appendThird, [&](const MemoryDisk& left, bool reported) {
            const Entries found = pending(left);
            EXPECT_TRUE(found == after || (found == before && !reported));
        });
    }
}

TEST_F(JournalFaults, AReportedFirstEntryOfAMissingJournalSurvivesAPowerCut) {
    cutPowerAfterEachCall({}, appendThird, [&](const MemoryDisk& left, bool reported) {
        const Entries found = pending(left);
        EXPECT_TRUE(found == Entries{sampleEntry(3)} || (found.empty() && !reported));
    });
}

TEST_F(JournalFaults, AfterAPowerCutWhileAppendingTheNextEntryIsAddedAndNoneIsLost) {
    cutPowerAfterEachCall(diskWith(sampleLine(1)), appendThird, [&](const MemoryDisk& left, bool) {
        Entries expected = pending(left);
        expected.push_back(sampleEntry(2));
        MemoryFileSystem files(left);
        ASSERT_TRUE(WidgetJournal::append(sampleEntry(2), files));
        EXPECT_EQ(pending(files.disk()), expected);
    });
}

TEST_F(JournalFaults, AReportedEntrySurvivesAPowerCutDuringTheNextAppend) {
    MemoryFileSystem first;
    ASSERT_TRUE(WidgetJournal::append(sampleEntry(1), first));
    cutPowerAfterEachCall(first.disk(), appendThird, [&](const MemoryDisk& left, bool) {
        const Entries found = pending(left);
        ASSERT_FALSE(found.empty());
        EXPECT_EQ(found.front(), sampleEntry(1));
    });
}

/// Whatever a process that was killed in its first append has left undone, the next one makes good.
TEST_F(JournalFaults, AReportedEntrySurvivesAPowerCutThoughTheProcessBeforeWasKilledAnywhere) {
    failEachCall({}, EIO, Lasting::fromThenOn, appendThird, [&](const MemoryFileSystem& killed, bool) {
        MemoryFileSystem next(killed.disk());
        ASSERT_TRUE(WidgetJournal::append(sampleEntry(1), next));
        for (const MemoryDisk& left : next.disk().afterPowerCut())
            EXPECT_THAT(pending(left), ::testing::Contains(sampleEntry(1)));
    });
}

TEST_F(JournalFaults, APowerCutWhileRemovingLosesNoOtherEntryAndAReportedRemovalIsDone) {
    const Entries before = {sampleEntry(1), sampleEntry(2), sampleEntry(3)};
    const Entries after = {sampleEntry(1), sampleEntry(3)};
    const std::string bytes = sampleLine(1) + sampleLine(2) + sampleLine(3);
    cutPowerAfterEachCall(diskWith(bytes), removeSecond, [&](const MemoryDisk& left, bool reported) {
        const Entries found = pending(left);
        EXPECT_TRUE(found == after || (found == before && !reported));
    });
}

TEST_F(JournalFaults, APowerCutWhileRemovingAllLeavesAllOrNoneAndAReportedOneIsDone) {
    const std::string before = sampleLine(1) + sampleLine(2);
    cutPowerAfterEachCall(diskWith(before), removeAll, [&](const MemoryDisk& left, bool reported) {
        const std::string found = left.contents(file).value();
        EXPECT_TRUE(found.empty() || (found == before && !reported));
    });
}

} // namespace
} // namespace vantel
