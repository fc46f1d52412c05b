#include "host/desk/PlacementStore.h"
#include "tests/fakes/MemoryFileSystem.h"
#include "tests/fakes/ScopedEnvironment.h"

#include <cerrno>

#include <gmock/gmock.h>

namespace vantel::testing {

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

const FileURL folder = "/state/vantel-widgets";
const FileURL file = folder / "placements.json";

struct PlacementStoreTest : ::testing::Test {
    MemoryFileSystem files;
    std::vector<std::string> reports;
    PlacementStore store{folder, files, [this](const std::string& text) { reports.push_back(text); }};

    static Placements oneWidget() { return {Placement{.kind = "VantelFocusWidget"}}; }
};

TEST_F(PlacementStoreTest, NothingIsThereBeforeTheFirstSave) {
    EXPECT_EQ(store.load(), std::nullopt);
    EXPECT_THAT(reports, IsEmpty());
}

TEST_F(PlacementStoreTest, WhatWasSavedIsLoaded) {
    store.save(oneWidget());
    EXPECT_EQ(store.load(), oneWidget());
}

TEST_F(PlacementStoreTest, NoWidgetsAreNotTheSameAsAFirstStart) {
    store.save({});
    EXPECT_EQ(store.load(), Placements());
}

TEST_F(PlacementStoreTest, ASaveSurvivesAPowerCut) {
    store.save({});
    store.save(oneWidget());
    for (const MemoryDisk& disk : files.disk().afterPowerCut())
        EXPECT_EQ(disk.contents(file), writePlacements(oneWidget()).value());
}

TEST_F(PlacementStoreTest, AFileThatDoesNotDecodeIsSetAsideAndReported) {
    files.disk().plant(file, "{\"version\":2,\"placements\":[]}");
    EXPECT_EQ(store.load(), std::nullopt);
    store.save(oneWidget());
    EXPECT_EQ(files.disk().contents(folder / "placements.json.unreadable-1"),
              "{\"version\":2,\"placements\":[]}");
    EXPECT_EQ(store.load(), oneWidget());
    EXPECT_THAT(reports, ElementsAre("The places of the widgets cannot be read from "
                                     "/state/vantel-widgets/placements.json (version: not 1). It is kept as "
                                     "placements.json.unreadable-1."));
}

TEST_F(PlacementStoreTest, AFileThatWasSetAsideBeforeIsKept) {
    files.disk().plant(folder / "placements.json.unreadable-1", "first");
    files.disk().plant(file, "second");
    store.load();
    EXPECT_EQ(files.disk().contents(folder / "placements.json.unreadable-1"), "first");
    EXPECT_EQ(files.disk().contents(folder / "placements.json.unreadable-2"), "second");
}

TEST_F(PlacementStoreTest, AFileThatCannotBeReadIsSetAside) {
    store.save(oneWidget());
    files.faults().fail(FileOperation::read, 1, EIO, Lasting::once);
    EXPECT_EQ(store.load(), std::nullopt);
    EXPECT_TRUE(files.disk().contents(folder / "placements.json.unreadable-1"));
}

TEST_F(PlacementStoreTest, AFileThatCannotBeSetAsideIsNeverOverwritten) {
    files.disk().plant(file, "precious");
    files.faults().fail(FileOperation::rename, 1, EROFS, Lasting::once);
    store.load();
    store.save(oneWidget());
    EXPECT_EQ(files.disk().contents(file), "precious");
    EXPECT_THAT(reports, ElementsAre(HasSubstr("changes are not saved")));
}

TEST_F(PlacementStoreTest, FailuresToSaveAreReportedOnceUntilASaveSucceeds) {
    files.faults().fail(FileOperation::write, 1, ENOSPC, Lasting::once);
    files.faults().fail(FileOperation::write, 2, ENOSPC, Lasting::once);
    store.save(oneWidget());
    store.save(oneWidget());
    EXPECT_EQ(reports.size(), 1U);
    store.save(oneWidget());
    files.faults().fail(FileOperation::write, 1, ENOSPC, Lasting::once);
    store.save(oneWidget());
    EXPECT_EQ(reports.size(), 2U);
    EXPECT_EQ(store.load(), oneWidget());
}

TEST_F(PlacementStoreTest, WithoutAFolderNothingIsKeptAndThatIsSaid) {
    PlacementStore homeless(std::nullopt, files,
                            [this](const std::string& text) { reports.push_back(text); });
    EXPECT_EQ(homeless.load(), std::nullopt);
    homeless.save(oneWidget());
    EXPECT_EQ(reports.size(), 1U);
}

struct StateFolderCase {
    std::optional<std::string> state;
    std::optional<std::string> home;
    std::optional<FileURL> expected;
};

TEST(StateFolder, FollowsTheBaseFolderRules) {
    const StateFolderCase cases[] = {
        {"/s", "/h", "/s/vantel-widgets"},
        {std::nullopt, "/h", "/h/.local/state/vantel-widgets"},
        {"", "/h", "/h/.local/state/vantel-widgets"},
        {"relative", "/h", "/h/.local/state/vantel-widgets"},
        {"relative", "also/relative", std::nullopt},
        {std::nullopt, std::nullopt, std::nullopt},
    };
    for (const auto& [state, home, expected] : cases) {
        const ScopedEnvironment stateVariable("XDG_STATE_HOME", state);
        const ScopedEnvironment homeVariable("HOME", home);
        EXPECT_EQ(stateFolder(), expected);
    }
}

} // namespace

} // namespace vantel::testing
