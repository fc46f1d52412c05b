#include "core/WidgetJournal.h"
#include "core/WidgetShared.h"
#include "tests/core/SampleJournal.h"
#include "tests/fakes/MemoryFileSystem.h"
#include "tests/fakes/ReadFile.h"
#include "tests/fakes/ScratchFolder.h"

#include <csignal>
#include <limits>

#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>

namespace vantel {
namespace {

using ::testing::ElementsAre;
using testing::FileOperation;
using ::testing::IsEmpty;
using testing::Lasting;
using testing::sampleEntry;
using testing::sampleLine;
using testing::sampleUuid;
using testing::ScopedEnvironment;

/// A journal on a memory disk.
struct Journal : ::testing::Test {
    ScopedEnvironment dataHome{"XDG_DATA_HOME", "/data"};
    testing::MemoryFileSystem files;
    FileURL file = WidgetShared::journalURL().value();

    void plant(const std::string& contents) { files.disk().plant(file, contents); }
    std::string contents() const { return files.disk().contents(file).value_or("missing"); }
    std::vector<WidgetJournalEntry> pending() { return WidgetJournal::pending(files).value(); }
    const std::vector<FileOperation>& calls() const { return files.faults().calls(); }
};

/// Neither variable that leads to a container is set.
struct JournalWithoutContainer : ::testing::Test {
    ScopedEnvironment dataHome{"XDG_DATA_HOME", std::nullopt};
    ScopedEnvironment home{"HOME", std::nullopt};
    testing::MemoryFileSystem files;
};

TEST_F(Journal, AppendingToAMissingOneCreatesItWithExactlyOneLine) {
    ASSERT_TRUE(WidgetJournal::append(sampleEntry(1), files));
    EXPECT_EQ(contents(), sampleLine(1));
    EXPECT_EQ(contents().back(), '\n');
}

TEST_F(Journal, AppendingAddsALineAndLeavesTheOthersAlone) {
    plant("kept as it is\n\n" + sampleLine(1));
    ASSERT_TRUE(WidgetJournal::append(sampleEntry(2), files));
    EXPECT_EQ(contents(), "kept as it is\n\n" + sampleLine(1) + sampleLine(2));
}

TEST_F(Journal, TheSameEntryTwiceIsTwoLines) {
    ASSERT_TRUE(WidgetJournal::append(sampleEntry(1), files));
    ASSERT_TRUE(WidgetJournal::append(sampleEntry(1), files));
    EXPECT_EQ(contents(), sampleLine(1) + sampleLine(1));
}

TEST_F(Journal, ALineGoesOutInOneWriteUnderTheLockAndIsSynced) {
    plant(sampleLine(1));
    ASSERT_TRUE(WidgetJournal::append(sampleEntry(2), files));
    EXPECT_THAT(calls(), ElementsAre(FileOperation::createDirectories, FileOperation::open,
                                     FileOperation::lock, FileOperation::isNamed, FileOperation::status,
                                     FileOperation::seekToEnd, FileOperation::readAt, FileOperation::write,
                                     FileOperation::syncData, FileOperation::unlock, FileOperation::close));
}

TEST_F(Journal, AnEntryThatCannotBeEncodedTouchesNothing) {
    WidgetJournalEntry entry = sampleEntry(1);
    entry.at = instantFromReference(std::numeric_limits<double>::infinity());
    EXPECT_EQ(std::get<EncodingError>(WidgetJournal::append(entry, files).error()).keyPath, "at");
    EXPECT_THAT(calls(), IsEmpty());
}

TEST_F(Journal, PendingGivesTheEntriesInTheOrderOfTheFile) {
    plant(sampleLine(3) + sampleLine(1) + sampleLine(2));
    EXPECT_THAT(pending(), ElementsAre(sampleEntry(3), sampleEntry(1), sampleEntry(2)));
}

TEST_F(Journal, PendingOfAMissingOneIsEmptyAndCreatesIt) {
    EXPECT_THAT(pending(), IsEmpty());
    EXPECT_EQ(contents(), "");
}

TEST_F(Journal, PendingChangesNoByte) {
    const std::string bytes = "\n\nnot an entry\n" + sampleLine(1) + "torn";
    plant(bytes);
    EXPECT_EQ(pending().size(), 1U);
    EXPECT_EQ(pending().size(), 1U);
    EXPECT_EQ(contents(), bytes);
}

TEST_F(Journal, PendingReleasesTheLockBeforeItReturns) {
    plant(sampleLine(1));
    pending();
    EXPECT_EQ(calls().back(), FileOperation::close);
    EXPECT_FALSE(files.isAnyDescriptorOpen());
}

TEST_F(Journal, ALastLineWithoutLineFeedStillYieldsItsEntry) {
    std::string bytes = sampleLine(1) + sampleLine(2);
    bytes.pop_back();
    plant(bytes);
    EXPECT_THAT(pending(), ElementsAre(sampleEntry(1), sampleEntry(2)));
}

TEST_F(Journal, BlankLinesBetweenEntriesYieldOnlyTheEntries) {
    plant("\n\n" + sampleLine(1) + "\n\n\n" + sampleLine(2) + "\n");
    EXPECT_THAT(pending(), ElementsAre(sampleEntry(1), sampleEntry(2)));
}

TEST_F(Journal, ALineWithAnotherActionIsSkippedAndGoneAfterTheNextRemoval) {
    std::string other = sampleLine(2);
    other.replace(other.find("completeTodo"), 12, "completeTask");
    plant(sampleLine(1) + other + sampleLine(3));
    EXPECT_THAT(pending(), ElementsAre(sampleEntry(1), sampleEntry(3)));
    ASSERT_TRUE(WidgetJournal::remove({sampleUuid(99)}, files));
    EXPECT_EQ(contents(), sampleLine(1) + sampleLine(3));
}

TEST_F(Journal, LinesThatAreNoEntriesAreSkippedAndGoneAfterTheNextRemoval) {
    for (const std::string& line :
         {std::string("not JSON"), std::string("{}"), std::string("null"), std::string("[1]"),
          std::string(2, '\0'), std::string(" \t"), std::string("\r"), std::string("\xFF"),
          std::string("{\"id\":1}"), sampleLine(2).substr(0, 40),
          sampleLine(2).substr(1, sampleLine(2).size() - 2)}) {
        plant(sampleLine(1) + line + "\n" + sampleLine(3));
        EXPECT_THAT(pending(), ElementsAre(sampleEntry(1), sampleEntry(3))) << line;
        ASSERT_TRUE(WidgetJournal::remove({sampleUuid(99)}, files));
        EXPECT_EQ(contents(), sampleLine(1) + sampleLine(3)) << line;
    }
}

TEST_F(Journal, ALineWithoutAccountBelongsToAnyAccountWhenThatIsAllowed) {
    std::string line = sampleLine(1);
    const std::string account = R"("accountID":"account-1",)";
    plant(line.erase(line.find(account), account.size()));
    ASSERT_EQ(pending().size(), 1U);
    const WidgetJournalEntry entry = pending().front();
    EXPECT_EQ(entry.accountID, "");
    for (const char* any : {"account-1", "B", ""}) {
        EXPECT_TRUE(entry.belongs(any, true));
        EXPECT_FALSE(entry.belongs(any, false));
    }
}

TEST_F(Journal, RemovingTakesTheEntriesOfTheIdsAndKeepsTheOthersInOrder) {
    plant(sampleLine(4) + sampleLine(1) + sampleLine(3) + sampleLine(2));
    ASSERT_TRUE(WidgetJournal::remove({sampleUuid(1), sampleUuid(2), sampleUuid(99)}, files));
    EXPECT_EQ(contents(), sampleLine(4) + sampleLine(3));
}

TEST_F(Journal, RemovingTakesEveryLineOfAnId) {
    plant(sampleLine(1) + sampleLine(2) + sampleLine(1));
    ASSERT_TRUE(WidgetJournal::remove({sampleUuid(1)}, files));
    EXPECT_EQ(contents(), sampleLine(2));
}

TEST_F(Journal, RemovingWithoutIdsLeavesEveryByteAndOpensNothing) {
    const std::string bytes = "not an entry\n" + sampleLine(1) + "torn";
    plant(bytes);
    ASSERT_TRUE(WidgetJournal::remove({}, files));
    EXPECT_EQ(contents(), bytes);
    EXPECT_THAT(calls(), IsEmpty());
}

TEST_F(Journal, RemovingEveryEntryLeavesAnEmptyFile) {
    plant(sampleLine(1) + sampleLine(2));
    ASSERT_TRUE(WidgetJournal::remove({sampleUuid(1), sampleUuid(2)}, files));
    EXPECT_EQ(contents(), "");
}

TEST_F(Journal, RemovingFromAMissingOneCreatesItEmpty) {
    ASSERT_TRUE(WidgetJournal::remove({sampleUuid(1)}, files));
    EXPECT_EQ(contents(), "");
}

TEST_F(Journal, RewritingNormalisesTheLinesItKeeps) {
    plant(R"( {"extra":{"id":1},"at":7.88918401e8,"todoID":"todo-1","action":"completeTodo",)"
          R"("id":"00000000-0000-4000-8000-000000000001","accountID":"account-1"} )"
          "\n" +
          sampleLine(2));
    ASSERT_TRUE(WidgetJournal::remove({sampleUuid(2)}, files));
    EXPECT_EQ(contents(), sampleLine(1));
}

TEST_F(Journal, RewritingAddsTheMissingAccountAndTheMissingLineFeed) {
    plant(R"({"id":"00000000-0000-4000-8000-000000000001","action":"completeTodo","todoID":"t","at":0})");
    ASSERT_TRUE(WidgetJournal::remove({sampleUuid(2)}, files));
    EXPECT_EQ(contents(), R"({"id":"00000000-0000-4000-8000-000000000001","accountID":"",)"
                          R"("action":"completeTodo","todoID":"t","at":0})"
                          "\n");
}

/// The redo copy stands on the disk from the first sync of the folder to the second.
TEST_F(Journal, RemovingHoldsTheLockFromItsReadingToTheEndOfTheRedoCopy) {
    plant(sampleLine(1));
    ASSERT_TRUE(WidgetJournal::remove({sampleUuid(2)}, files));
    const std::vector<FileOperation> taken(calls().begin() + 4, calls().end() - 2);
    EXPECT_THAT(taken, ElementsAre(FileOperation::status, FileOperation::status, FileOperation::read,
                                   FileOperation::read, FileOperation::names, FileOperation::open,
                                   FileOperation::status, FileOperation::changeMode, FileOperation::write,
                                   FileOperation::sync, FileOperation::close, FileOperation::rename,
                                   FileOperation::open, FileOperation::sync, FileOperation::close,
                                   FileOperation::truncate, FileOperation::seek, FileOperation::write,
                                   FileOperation::syncData, FileOperation::remove, FileOperation::open,
                                   FileOperation::sync, FileOperation::close));
    EXPECT_EQ(calls()[2], FileOperation::lock);
    EXPECT_EQ(calls()[calls().size() - 2], FileOperation::unlock);
}

TEST_F(Journal, RemovingEveryEntryNeedsNoRedoCopy) {
    plant(sampleLine(1));
    ASSERT_TRUE(WidgetJournal::remove({sampleUuid(1)}, files));
    EXPECT_THAT(calls(), ElementsAre(FileOperation::createDirectories, FileOperation::open,
                                     FileOperation::lock, FileOperation::isNamed, FileOperation::status,
                                     FileOperation::status, FileOperation::read, FileOperation::read,
                                     FileOperation::truncate, FileOperation::seek, FileOperation::syncData,
                                     FileOperation::unlock, FileOperation::close));
}

TEST_F(Journal, RemovingAllLeavesAnEmptyFile) {
    plant("not an entry\n" + sampleLine(1));
    ASSERT_TRUE(WidgetJournal::removeAll(files));
    EXPECT_EQ(contents(), "");
}

TEST_F(Journal, RemovingAllFromAMissingOneCreatesItEmpty) {
    ASSERT_TRUE(WidgetJournal::removeAll(files));
    EXPECT_EQ(contents(), "");
}

TEST_F(Journal, NeverTouchesTheSnapshotsLock) {
    ASSERT_TRUE(WidgetJournal::append(sampleEntry(1), files));
    ASSERT_TRUE(WidgetJournal::pending(files));
    ASSERT_TRUE(WidgetJournal::remove({sampleUuid(1)}, files));
    ASSERT_TRUE(WidgetJournal::removeAll(files));
    EXPECT_THAT(files.disk().names(file.parent_path()), ElementsAre("widget-journal.ndjson"));
}

TEST_F(Journal, AContainerThatCannotBeMadeIsTheSystemsErrorForEveryOperation) {
    files.faults().fail(FileOperation::createDirectories, 1, EROFS, Lasting::fromThenOn);
    const Error error = SystemError{"createDirectories", file.parent_path(), EROFS};
    EXPECT_EQ(WidgetJournal::append(sampleEntry(1), files).error(), error);
    EXPECT_EQ(WidgetJournal::pending(files).error(), error);
    EXPECT_EQ(WidgetJournal::remove({sampleUuid(1)}, files).error(), error);
    EXPECT_EQ(WidgetJournal::removeAll(files).error(), error);
}

TEST_F(Journal, AFileThatCannotBeOpenedOrLockedIsUnwritableForEveryOperation) {
    for (const FileOperation operation : {FileOperation::open, FileOperation::lock}) {
        testing::MemoryFileSystem failing;
        failing.faults().fail(operation, 1, EACCES, Lasting::fromThenOn);
        EXPECT_EQ(WidgetJournal::append(sampleEntry(1), failing).error(), fileWriteUnknown());
        EXPECT_EQ(WidgetJournal::pending(failing).error(), fileWriteUnknown());
        EXPECT_EQ(WidgetJournal::remove({sampleUuid(1)}, failing).error(), fileWriteUnknown());
        EXPECT_EQ(WidgetJournal::removeAll(failing).error(), fileWriteUnknown());
    }
}

TEST_F(Journal, AFailedSeekReadTruncationOrWriteIsHandedUpUnchanged) {
    const auto errorOf = [this](FileOperation operation, auto operate) {
        testing::MemoryFileSystem failing;
        failing.disk().plant(file, sampleLine(1));
        failing.faults().fail(operation, 1, EIO, Lasting::once);
        return std::get<SystemError>(operate(failing).error()).operation;
    };
    const auto append = [](FileSystem& on) { return WidgetJournal::append(sampleEntry(2), on); };
    const auto pendingOf = [](FileSystem& on) { return WidgetJournal::pending(on); };
    const auto remove = [](FileSystem& on) { return WidgetJournal::remove({sampleUuid(2)}, on); };
    const auto removeAll = [](FileSystem& on) { return WidgetJournal::removeAll(on); };
    for (const auto operation :
         {FileOperation::status, FileOperation::seekToEnd, FileOperation::write, FileOperation::syncData})
        EXPECT_EQ(errorOf(operation, append), name(operation));
    for (const auto operation : {FileOperation::status, FileOperation::read})
        EXPECT_EQ(errorOf(operation, pendingOf), name(operation));
    for (const auto operation : {FileOperation::read, FileOperation::truncate, FileOperation::seek,
                                 FileOperation::write, FileOperation::syncData})
        EXPECT_EQ(errorOf(operation, remove), name(operation));
    for (const auto operation : {FileOperation::truncate, FileOperation::syncData})
        EXPECT_EQ(errorOf(operation, removeAll), name(operation));
}

TEST_F(JournalWithoutContainer, AppendingAndRemovingAllCannotWrite) {
    EXPECT_EQ(WidgetJournal::append(sampleEntry(1), files).error(), fileWriteUnknown());
    EXPECT_EQ(WidgetJournal::removeAll(files).error(), fileWriteUnknown());
}

TEST_F(JournalWithoutContainer, PendingCannotRead) {
    EXPECT_EQ(WidgetJournal::pending(files).error(), fileReadUnknown());
}

TEST_F(JournalWithoutContainer, RemovingSucceedsWithAndWithoutIds) {
    EXPECT_TRUE(WidgetJournal::remove({sampleUuid(1)}, files));
    EXPECT_TRUE(WidgetJournal::remove({}, files));
    EXPECT_THAT(files.faults().calls(), IsEmpty());
}

/// A journal in a real folder.
struct RealJournal : ::testing::Test {
    testing::ScratchDataHome dataHome;
    FileURL file = WidgetShared::journalURL().value();

    ino_t inode() const {
        struct stat status{};
        EXPECT_EQ(::stat(file.c_str(), &status), 0);
        return status.st_ino;
    }

    std::string contents() const { return testing::readFile(file).value_or("missing"); }
};

TEST_F(RealJournal, IsFilledReadDrainedAndEmptied) {
    for (const int number : {1, 2, 3})
        ASSERT_TRUE(WidgetJournal::append(sampleEntry(number)));
    EXPECT_THAT(WidgetJournal::pending().value(),
                ElementsAre(sampleEntry(1), sampleEntry(2), sampleEntry(3)));
    ASSERT_TRUE(WidgetJournal::remove({sampleUuid(2)}));
    EXPECT_EQ(contents(), sampleLine(1) + sampleLine(3));
    ASSERT_TRUE(WidgetJournal::removeAll());
    EXPECT_EQ(contents(), "");
}

TEST_F(RealJournal, IsCreatedReadableByOthersLessTheUmask) {
    const mode_t before = ::umask(0027);
    const auto appended = WidgetJournal::append(sampleEntry(1));
    ::umask(before);
    ASSERT_TRUE(appended);
    EXPECT_EQ(systemFileSystem().status(file).value().mode, 0640U);
}

TEST_F(RealJournal, StaysTheSameFileSinceTheLockLiesOnIt) {
    ASSERT_TRUE(WidgetJournal::append(sampleEntry(1)));
    const ino_t first = inode();
    ASSERT_TRUE(WidgetJournal::append(sampleEntry(2)));
    ASSERT_TRUE(WidgetJournal::remove({sampleUuid(1)}));
    ASSERT_TRUE(WidgetJournal::removeAll());
    EXPECT_EQ(inode(), first);
}

TEST_F(RealJournal, AFifoInItsPlaceFailsAtOnce) {
    std::filesystem::create_directories(file.parent_path());
    ASSERT_EQ(::mkfifo(file.c_str(), 0600), 0);
    EXPECT_FALSE(WidgetJournal::append(sampleEntry(1)));
    EXPECT_FALSE(WidgetJournal::pending());
    EXPECT_FALSE(WidgetJournal::remove({sampleUuid(1)}));
    EXPECT_FALSE(WidgetJournal::removeAll());
}

TEST_F(RealJournal, ALineThatDoesNotFitLeavesNoPartOfItself) {
    ASSERT_TRUE(WidgetJournal::append(sampleEntry(1)));
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit tight{sampleLine(1).size() + 20, before.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &tight), 0);
    const auto appended = WidgetJournal::append(sampleEntry(2));
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &before), 0);
    std::signal(SIGXFSZ, handler);
    ASSERT_FALSE(appended);
    EXPECT_EQ(std::get<SystemError>(appended.error()).number, EFBIG);
    EXPECT_EQ(contents(), sampleLine(1));
}

} // namespace
} // namespace vantel
