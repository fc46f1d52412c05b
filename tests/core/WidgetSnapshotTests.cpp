#include "core/WidgetShared.h"
#include "core/WidgetSnapshot.h"
#include "tests/core/SampleSnapshot.h"
#include "tests/fakes/ReadFile.h"
#include "tests/fakes/ScratchFolder.h"

#include <gmock/gmock.h>

namespace vantel {
namespace {

using testing::documentOf;
using testing::noon;
using testing::sampleSnapshot;
using testing::ScopedEnvironment;

/// The shared snapshot, in a data folder of the test's own.
struct SharedSnapshot : ::testing::Test {
    testing::ScratchDataHome dataHome;
    FileURL file = WidgetShared::snapshotURL().value();

    std::string document() const { return testing::readFile(file).value_or("missing"); }
};

/// Neither variable that leads to a container is set.
struct SharedSnapshotWithoutContainer : ::testing::Test {
    ScopedEnvironment dataHome{"XDG_DATA_HOME", std::nullopt};
    ScopedEnvironment home{"HOME", std::nullopt};
};

TEST_F(SharedSnapshot, IsWrittenToAndLoadedFromTheContainer) {
    EXPECT_EQ(WidgetSnapshot::load(), std::nullopt);
    ASSERT_TRUE(sampleSnapshot().write());
    EXPECT_EQ(document(), documentOf(sampleSnapshot()));
    EXPECT_EQ(WidgetSnapshot::load(), sampleSnapshot());
}

TEST_F(SharedSnapshot, IsGuardedByItsOwnLockFile) {
    EXPECT_EQ(WidgetSnapshot::load(), std::nullopt);
    EXPECT_EQ(std::filesystem::file_size(WidgetShared::snapshotLockURL().value()), 0U);
    EXPECT_FALSE(std::filesystem::exists(WidgetShared::journalURL().value()));
}

TEST_F(SharedSnapshot, IsRemoved) {
    ASSERT_TRUE(sampleSnapshot().write());
    ASSERT_TRUE(WidgetSnapshot::remove());
    EXPECT_FALSE(std::filesystem::exists(file));
    EXPECT_TRUE(WidgetSnapshot::remove());
}

TEST_F(SharedSnapshot, IsRemovedForItsAccountOrForAnyWhenItIsUnboundAndThatIsAllowed) {
    ASSERT_TRUE(sampleSnapshot("A").write());
    EXPECT_EQ(WidgetSnapshot::remove("B", true), false);
    EXPECT_EQ(WidgetSnapshot::remove("A", false), true);
    EXPECT_FALSE(std::filesystem::exists(file));
    ASSERT_TRUE(sampleSnapshot("").write());
    EXPECT_EQ(WidgetSnapshot::remove("A", false), false);
    EXPECT_EQ(WidgetSnapshot::remove("A", true), true);
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(SharedSnapshot, IsStampedForItsAccount) {
    ASSERT_TRUE(sampleSnapshot("A").write());
    EXPECT_EQ(WidgetSnapshot::applyCompletion("b", noon, "B"), false);
    EXPECT_EQ(WidgetSnapshot::load(), sampleSnapshot("A"));
    EXPECT_EQ(WidgetSnapshot::applyCompletion("b", noon, "A"), true);
    EXPECT_EQ(WidgetSnapshot::load()->tasks[1].completedAt, noon);
}

TEST_F(SharedSnapshot, OfAnotherVersionIsAbsent) {
    WidgetSnapshot next = sampleSnapshot();
    next.version = 2;
    ASSERT_TRUE(next.write());
    EXPECT_EQ(WidgetSnapshot::load(), std::nullopt);
}

TEST_F(SharedSnapshotWithoutContainer, LoadsAsAbsent) {
    EXPECT_EQ(WidgetSnapshot::load(), std::nullopt);
}

TEST_F(SharedSnapshotWithoutContainer, CanBeNeitherWrittenNorRemovedNorStamped) {
    EXPECT_EQ(sampleSnapshot().write().error(), fileWriteUnknown());
    EXPECT_EQ(WidgetSnapshot::remove().error(), fileWriteUnknown());
    EXPECT_EQ(WidgetSnapshot::remove("account", true).error(), fileWriteUnknown());
    EXPECT_EQ(WidgetSnapshot::applyCompletion("a", noon, "account").error(), fileWriteUnknown());
}

TEST(WidgetSnapshot, TheErrorOfAMissingContainerCarriesNothingElse) {
    const auto error = std::get<CocoaError>(fileWriteUnknown());
    EXPECT_EQ(static_cast<int>(error.code), 512);
    EXPECT_TRUE(error.userInfo.empty());
    EXPECT_EQ(static_cast<int>(std::get<CocoaError>(fileReadUnknown()).code), 256);
}

TEST(WidgetSnapshot, ApplyingACompletionGivesACopyAndKeepsTheOriginal) {
    const WidgetSnapshot snapshot = sampleSnapshot();
    const WidgetSnapshot stamped = snapshot.applyingCompletion("a", noon);
    EXPECT_EQ(snapshot, sampleSnapshot());
    EXPECT_EQ(stamped.tasks[0].completedAt, noon);
}

TEST(WidgetSnapshot, ApplyingACompletionChangesNoOtherFieldTaskOrOrder) {
    WidgetSnapshot stamped = sampleSnapshot().applyingCompletion("b", noon);
    ASSERT_EQ(stamped.tasks[1].completedAt, noon);
    stamped.tasks[1].completedAt.reset();
    EXPECT_EQ(stamped, sampleSnapshot());
}

TEST(WidgetSnapshot, ApplyingACompletionStampsEveryTaskOfTheId) {
    WidgetSnapshot snapshot = sampleSnapshot();
    snapshot.tasks[2].id = "a";
    const WidgetSnapshot stamped = snapshot.applyingCompletion("a", noon);
    EXPECT_EQ(stamped.tasks[0].completedAt, noon);
    EXPECT_EQ(stamped.tasks[1].completedAt, std::nullopt);
    EXPECT_EQ(stamped.tasks[2].completedAt, noon);
}

TEST(WidgetSnapshot, ApplyingACompletionOverwritesAnEarlierInstantEvenWithAnEarlierOne) {
    for (const double seconds : {0.0, 788'961'600.0}) {
        const Instant at = instantFromReference(seconds);
        EXPECT_EQ(sampleSnapshot().applyingCompletion("c", at).tasks[2].completedAt, at);
    }
}

TEST(WidgetSnapshot, ApplyingACompletionOfAnIdThatIsNotExactlyATasksChangesNothing) {
    for (const char* unknown : {"", "A", "a ", "aa", "x"})
        EXPECT_EQ(sampleSnapshot().applyingCompletion(unknown, noon), sampleSnapshot()) << unknown;
}

} // namespace
} // namespace vantel
