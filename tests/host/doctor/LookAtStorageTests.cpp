#include "core/WidgetShared.h"
#include "host/doctor/LookAround.h"
#include "platform/DataFile.h"
#include "platform/LockedFile.h"
#include "tests/fakes/ScratchFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace vantel {
namespace {

using namespace testing;

class LookAtStorageTest : public ::testing::Test {
protected:
    void makeContainer() { ASSERT_TRUE(systemFileSystem().createDirectories(*WidgetShared::containerURL())); }

    ScratchDataHome m_data;
    ScratchFolder m_state;
    ScopedEnvironment m_stateVariable{"XDG_STATE_HOME", m_state.path().string()};
};

TEST_F(LookAtStorageTest, FindsNothingAndMakesNothingWhereNothingIs) {
    const StorageFacts facts = lookAtStorage();
    ASSERT_TRUE(facts.container);
    EXPECT_EQ(facts.container->folder.kind, FileFacts::Kind::missing);
    ASSERT_TRUE(facts.placements);
    EXPECT_FALSE(facts.placements->count);
    EXPECT_TRUE(std::filesystem::is_empty(m_data.path()));
    EXPECT_TRUE(std::filesystem::is_empty(m_state.path()));
}

TEST_F(LookAtStorageTest, FindsASnapshotThatDoesNotDecodeAndALockThatIsHeld) {
    makeContainer();
    ASSERT_TRUE(writeFileAtomically(*WidgetShared::snapshotURL(), "{}", systemFileSystem()));
    const auto locked = LockedFile::acquire(*WidgetShared::snapshotLockURL(), systemFileSystem());
    const StorageFacts facts = lookAtStorage();
    EXPECT_EQ(facts.container->snapshotLockState.kind, LockFacts::Kind::held);
    ASSERT_TRUE(facts.container->head);
    EXPECT_FALSE(*facts.container->head);
    EXPECT_EQ(facts.container->journal.kind, FileFacts::Kind::missing);
}

TEST_F(LookAtStorageTest, AFolderIsReachableOnlyWhenAllFoldersAboveItLetOthersPass) {
    makeContainer();
    const FileURL folder = *WidgetShared::containerURL();
    EXPECT_FALSE(lookAtStorage().container->isReachable);
    ASSERT_EQ(::chmod(folder.c_str(), 0755), 0);
    EXPECT_FALSE(lookAtStorage().container->isReachable);
    for (FileURL above = folder.parent_path(); above != m_data.path().parent_path();
         above = above.parent_path())
        ASSERT_EQ(::chmod(above.c_str(), 0711), 0);
    EXPECT_TRUE(lookAtStorage().container->isReachable);
}

TEST_F(LookAtStorageTest, AFolderIsReachableByWhoeverMayLookInsideOrPassButNotByItsOwnerAlone) {
    makeContainer();
    const FileURL folder = *WidgetShared::containerURL();
    for (FileURL above = folder.parent_path(); above != m_data.path().parent_path();
         above = above.parent_path())
        ASSERT_EQ(::chmod(above.c_str(), 0711), 0);
    const std::pair<unsigned, bool> modes[] = {{0700, false}, {0500, false}, {0600, false}, {0750, true},
                                               {0710, true},  {0740, true},  {0705, true},  {0701, true},
                                               {0704, true},  {0770, true},  {0777, true},  {02700, false}};
    for (const auto& [mode, isReachable] : modes) {
        ASSERT_EQ(::chmod(folder.c_str(), mode), 0);
        EXPECT_EQ(lookAtStorage().container->isReachable, isReachable) << std::oct << mode;
    }
    ASSERT_EQ(::chmod(folder.c_str(), 0700), 0);
}

} // namespace
} // namespace vantel
