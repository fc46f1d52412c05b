#include "core/WidgetJournal.h"
#include "core/WidgetShared.h"
#include "core/WidgetSnapshot.h"
#include "platform/DataFile.h"
#include "tests/fakes/ScopedEnvironment.h"
#include "tests/fakes/ScratchFolder.h"
#include "tests/fakes/SequentialUuids.h"
#include "tests/widgets/WidgetFixture.h"
#include "widgets/CompleteTodoIntent.h"
#include "widgets/VantelWidgetsBundle.h"

#include <gtest/gtest.h>

namespace vantel {
namespace {

using namespace testing;

class CompleteTodoIntentTest : public ::testing::Test {
protected:
    Result<void> complete(const std::string& todoID, const std::string& accountID) {
        return CompleteTodoIntent(todoID, accountID).perform({clock, identifiers});
    }

    static WidgetSnapshot snapshotWithTask() {
        WidgetSnapshot snapshot = emptySnapshot(at("2026-11-17T08:00"));
        snapshot.accountID = "A";
        snapshot.tasks = {task("T", at("2026-11-17T17:00")), task("other", std::nullopt)};
        return snapshot;
    }

    static std::string snapshotBytes() {
        return readFile(*WidgetShared::snapshotURL(), systemFileSystem()).value();
    }

    FixedClock clock{at("2026-11-17T09:20")};
    SequentialUuids identifiers;
    ScratchFolder scratch;
    ScopedEnvironment container{"XDG_DATA_HOME", scratch.path().string()};
};

TEST_F(CompleteTodoIntentTest, JournalsTheCompletionAndStampsTheSnapshotWithTheSameInstant) {
    ASSERT_TRUE(snapshotWithTask().write());
    ASSERT_TRUE(complete("T", "A"));
    const auto entries = WidgetJournal::pending().value();
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0].action, WidgetJournalEntry::Action::completeTodo);
    EXPECT_EQ(entries[0].todoID, "T");
    EXPECT_EQ(entries[0].accountID, "A");
    EXPECT_EQ(entries[0].at, clock.now());
    EXPECT_EQ(WidgetSnapshot::load().value(), snapshotWithTask().applyingCompletion("T", clock.now()));
}

TEST_F(CompleteTodoIntentTest, ForAnotherAccountTheSnapshotStaysByteForByteAndTheRunSucceeds) {
    ASSERT_TRUE(snapshotWithTask().write());
    const std::string before = snapshotBytes();
    ASSERT_TRUE(complete("T", "B"));
    EXPECT_EQ(WidgetJournal::pending().value().size(), 1U);
    EXPECT_EQ(snapshotBytes(), before);
}

TEST_F(CompleteTodoIntentTest, AnUnboundSnapshotIsNotStampedForAnAccount) {
    WidgetSnapshot snapshot = snapshotWithTask();
    snapshot.accountID = "";
    ASSERT_TRUE(snapshot.write());
    ASSERT_TRUE(complete("T", "A"));
    EXPECT_EQ(WidgetSnapshot::load().value(), snapshot);
}

TEST_F(CompleteTodoIntentTest, WithoutASnapshotTheLineIsWrittenAndNoSnapshotIsMade) {
    ASSERT_TRUE(complete("T", "A"));
    EXPECT_EQ(WidgetJournal::pending().value().size(), 1U);
    EXPECT_FALSE(std::filesystem::exists(*WidgetShared::snapshotURL()));
}

TEST_F(CompleteTodoIntentTest, ATaskThatIsNotInTheSnapshotSucceedsAndChangesNoTask) {
    ASSERT_TRUE(snapshotWithTask().write());
    ASSERT_TRUE(complete("unknown", "A"));
    EXPECT_EQ(WidgetJournal::pending().value().size(), 1U);
    EXPECT_EQ(WidgetSnapshot::load().value(), snapshotWithTask());
}

TEST_F(CompleteTodoIntentTest, ASnapshotThatCannotBeWrittenIsNoFailure) {
    ASSERT_TRUE(snapshotWithTask().write());
    const auto lock = *WidgetShared::snapshotLockURL();
    std::filesystem::remove(lock);
    std::filesystem::create_directory(lock);
    EXPECT_TRUE(complete("T", "A"));
    EXPECT_EQ(WidgetJournal::pending().value().size(), 1U);
}

TEST_F(CompleteTodoIntentTest, WithoutAContainerTheRunFailsAndNothingIsWritten) {
    const ScopedEnvironment noBase("XDG_DATA_HOME", std::nullopt);
    const ScopedEnvironment noHome("HOME", std::nullopt);
    const auto result = complete("T", "A");
    ASSERT_FALSE(result);
    EXPECT_EQ(result.error(), fileWriteUnknown());
    EXPECT_TRUE(std::filesystem::is_empty(scratch.path()));
}

TEST_F(CompleteTodoIntentTest, AJournalThatCannotBeWrittenFailsAndTheSnapshotIsNotTouched) {
    ASSERT_TRUE(snapshotWithTask().write());
    const std::string before = snapshotBytes();
    std::filesystem::create_directory(*WidgetShared::journalURL());
    EXPECT_FALSE(complete("T", "A"));
    EXPECT_EQ(snapshotBytes(), before);
}

TEST_F(CompleteTodoIntentTest, TwoRunsForOneTaskGiveTwoLinesWithDistinctIds) {
    ASSERT_TRUE(snapshotWithTask().write());
    ASSERT_TRUE(complete("T", "A"));
    ASSERT_TRUE(complete("T", "A"));
    const auto entries = WidgetJournal::pending().value();
    ASSERT_EQ(entries.size(), 2U);
    EXPECT_NE(entries[0].id, entries[1].id);
}

TEST_F(CompleteTodoIntentTest, EmptyTextsPassThrough) {
    ASSERT_TRUE(complete("", ""));
    const auto entries = WidgetJournal::pending().value();
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0].todoID, "");
    EXPECT_EQ(entries[0].accountID, "");
}

TEST_F(CompleteTodoIntentTest, TheBundleRunsWhatAButtonCarries) {
    ASSERT_TRUE(snapshotWithTask().write());
    const WidgetBundle bundle = VantelWidgetsBundle::body();
    const IntentCall call = CompleteTodoIntent("T", "A").call();
    ASSERT_TRUE(bundle.intent(call.name)->perform(call, {clock, identifiers}));
    EXPECT_EQ(WidgetSnapshot::load()->tasks[0].completedAt, clock.now());
}

TEST(CompleteTodoIntent, DeclaresItsTitlesAndIsNotOfferedElsewhere) {
    const CompleteTodoIntent intent;
    EXPECT_STREQ(CompleteTodoIntent::title, "Complete task");
    EXPECT_STREQ(intent.todoID.title, "Task id");
    EXPECT_STREQ(intent.accountID.title, "Account id");
    EXPECT_EQ(intent.todoID.value, std::nullopt);
    EXPECT_EQ(intent.accountID.value, std::nullopt);
    EXPECT_FALSE(CompleteTodoIntent::isDiscoverable);
}

} // namespace
} // namespace vantel
