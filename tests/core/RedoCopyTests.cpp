#include "core/RedoCopy.h"
#include "tests/core/SampleJournal.h"
#include "tests/fakes/FaultSweep.h"

#include <gmock/gmock.h>

namespace vantel {
namespace {

using ::testing::ElementsAre;
using testing::FileOperation;
using testing::Lasting;
using testing::MemoryDisk;
using testing::MemoryFileSystem;
using testing::sampleLine;
using testing::sampleUuid;

const FileURL folder = "/data";
const FileURL journal = folder / "journal.ndjson";
const FileURL copy = folder / "journal.redo";
const RedoCopy::Plan plan{sampleLine(1) + sampleLine(2), {sampleUuid(3), sampleUuid(4)}};

MemoryDisk diskWithJournal() {
    MemoryDisk disk;
    disk.plant(journal, "", 0600);
    return disk;
}

RedoCopy::Plan madeAndRead(const RedoCopy::Plan& made) {
    MemoryFileSystem files(diskWithJournal());
    EXPECT_TRUE(RedoCopy::make(made, journal, files));
    return RedoCopy::unfinished(journal, files).value().value();
}

std::string contentsWith(const std::string& journalBytes) {
    return RedoCopy::withLinesBeyond(plan, journalBytes).contents;
}

TEST(RedoCopy, ThereIsNoneBeforeItIsMadeAndAfterItIsRemoved) {
    MemoryFileSystem files(diskWithJournal());
    EXPECT_EQ(RedoCopy::unfinished(journal, files).value(), std::nullopt);
    ASSERT_TRUE(RedoCopy::make(plan, journal, files));
    EXPECT_EQ(RedoCopy::unfinished(journal, files).value(), plan);
    ASSERT_TRUE(RedoCopy::remove(journal, files));
    EXPECT_EQ(RedoCopy::unfinished(journal, files).value(), std::nullopt);
    EXPECT_THAT(files.disk().names(folder), ElementsAre("journal.ndjson"));
}

TEST(RedoCopy, IsReadBackAsItWasMade) {
    for (const RedoCopy::Plan& made :
         {plan, RedoCopy::Plan{sampleLine(1), {}}, RedoCopy::Plan{"", {sampleUuid(1)}},
          RedoCopy::Plan{"not an entry\n" + sampleLine(1), {sampleUuid(9)}},
          RedoCopy::Plan{R"({"removed":[]})"
                         "\n" +
                             sampleLine(1),
                         {sampleUuid(9)}}})
        EXPECT_EQ(madeAndRead(made), made) << made.contents;
}

TEST(RedoCopy, HasTheModeOfTheJournalAndSurvivesAPowerCutOnceItIsMade) {
    MemoryFileSystem files(diskWithJournal());
    ASSERT_TRUE(RedoCopy::make(plan, journal, files));
    EXPECT_EQ(files.disk().mode(copy), 0600U);
    for (const MemoryDisk& left : files.disk().afterPowerCut()) {
        MemoryFileSystem next(left);
        EXPECT_EQ(RedoCopy::unfinished(journal, next).value(), plan);
    }
}

TEST(RedoCopy, IsWholeOrMissingWhereverMakingItEnds) {
    const auto make = [](FileSystem& files) { return RedoCopy::make(plan, journal, files); };
    testing::cutPowerAfterEachCall(diskWithJournal(), make, [](const MemoryDisk& left, bool reported) {
        MemoryFileSystem next(left);
        const auto found = RedoCopy::unfinished(journal, next).value();
        EXPECT_TRUE(found == plan || (!found && !reported));
    });
}

TEST(RedoCopy, MakingItTakesAwayWhatKilledProcessesHaveLeft) {
    MemoryFileSystem files(diskWithJournal());
    files.disk().plant(folder / ".journal.redo.1.tmp", "half");
    ASSERT_TRUE(RedoCopy::make(plan, journal, files));
    EXPECT_THAT(files.disk().names(folder), ElementsAre("journal.ndjson", "journal.redo"));
}

TEST(RedoCopy, OneThatCannotBeLookedAtIsAFailureAndNotAMissingOne) {
    for (const FileOperation operation : {FileOperation::status, FileOperation::open, FileOperation::read}) {
        MemoryFileSystem files(diskWithJournal());
        ASSERT_TRUE(RedoCopy::make(plan, journal, files));
        files.faults().fail(operation, 1, EACCES, Lasting::once);
        EXPECT_FALSE(RedoCopy::unfinished(journal, files)) << name(operation);
        EXPECT_FALSE(files.isAnyDescriptorOpen());
    }
}

TEST(RedoCopy, WhatIsNotARegularFileIsNone) {
    MemoryFileSystem files(diskWithJournal());
    files.disk().makeFolders(copy);
    EXPECT_EQ(RedoCopy::unfinished(journal, files).value(), std::nullopt);
}

TEST(RedoCopy, OneThatADiskDamagedIsReadAsFarAsItGoes) {
    const std::string head = R"({"removed":[{"id":")" + text(sampleUuid(3)) + "\"}]}";
    const std::pair<std::string, RedoCopy::Plan> cases[] = {
        {"", {}},
        {head, {"", {sampleUuid(3)}}},
        {head + "\n", {"", {sampleUuid(3)}}},
        {head + "\n" + sampleLine(1) + "{\"id\"", {sampleLine(1) + "{\"id\"\n", {sampleUuid(3)}}},
        {head.substr(0, 20) + "\n" + sampleLine(1), {head.substr(0, 20) + "\n" + sampleLine(1), {}}},
        {sampleLine(1), {sampleLine(1), {}}}};
    for (const auto& [bytes, expected] : cases) {
        MemoryFileSystem files(diskWithJournal());
        files.disk().plant(copy, bytes);
        EXPECT_EQ(RedoCopy::unfinished(journal, files).value(), expected) << bytes;
    }
}

/// Which lines of the journal belong to nobody's list.

TEST(RedoCopy, ItsOwnLinesAreTakenOnceWhateverTheJournalHoldsOfThem) {
    for (const std::string& bytes : {std::string(), sampleLine(1), plan.contents, sampleLine(2),
                                     sampleLine(1) + sampleLine(3) + sampleLine(2) + sampleLine(4)})
        EXPECT_EQ(contentsWith(bytes), plan.contents) << bytes;
}

TEST(RedoCopy, ALineThatItDoesNotNameStaysAfterItsOwnOnes) {
    EXPECT_EQ(contentsWith(sampleLine(5)), plan.contents + sampleLine(5));
    EXPECT_EQ(contentsWith(sampleLine(1) + sampleLine(6) + sampleLine(3) + sampleLine(5)),
              plan.contents + sampleLine(6) + sampleLine(5));
}

TEST(RedoCopy, ALineThatDoesNotDecodeStaysSinceAnotherProgramMayReadIt) {
    EXPECT_EQ(contentsWith(sampleLine(1) + "{\"of\":\"another kind\"}\n"),
              plan.contents + "{\"of\":\"another kind\"}\n");
}

TEST(RedoCopy, APieceOfItsOwnLinesIsDroppedAtAnyLengthWithAndWithoutAnAppendAfterIt) {
    for (std::size_t length = 0; length < plan.contents.size(); ++length) {
        EXPECT_EQ(contentsWith(plan.contents.substr(0, length)), plan.contents) << length;
        EXPECT_EQ(contentsWith(plan.contents.substr(0, length) + "\n" + sampleLine(5)),
                  plan.contents + sampleLine(5))
            << length;
    }
}

TEST(RedoCopy, ZerosInPlaceOfWhatWasWrittenAreDropped) {
    EXPECT_EQ(contentsWith(std::string(plan.contents.size(), '\0')), plan.contents);
    EXPECT_EQ(contentsWith(std::string(7, '\0') + "\n" + sampleLine(5)), plan.contents + sampleLine(5));
}

TEST(RedoCopy, WhatIsBegunElsewhereInTheJournalIsNoPieceOfItsLines) {
    const std::string piece = sampleLine(1).substr(0, 40);
    EXPECT_EQ(contentsWith(sampleLine(6) + "\n" + piece), plan.contents + sampleLine(6) + piece + "\n");
}

} // namespace
} // namespace vantel
