#include "host/desk/PlacementStore.h"
#include "platform/DataFile.h"
#include "tests/fakes/MemoryFileSystem.h"
#include "tests/fakes/ScopedEnvironment.h"
#include "tests/fakes/ScratchFolder.h"

#include <cerrno>
#include <fstream>

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

/// The real files of a user who keeps the document elsewhere.
struct LinkedPlacementsTest : ::testing::Test {
    ScratchFolder scratch;
    FileURL state = scratch / "state";
    FileURL link = state / "placements.json";
    std::vector<std::string> reports;
    PlacementStore store{state, systemFileSystem(),
                         [this](const std::string& text) { reports.push_back(text); }};

    LinkedPlacementsTest() {
        std::filesystem::create_directory(state);
        std::filesystem::create_directory(scratch / "dotfiles");
    }

    static Placements widget(const std::string& kind) { return {Placement{.kind = kind}}; }
};

TEST_F(LinkedPlacementsTest, ASaveReplacesTheFileBehindTheLinksAndLeavesThem) {
    std::filesystem::create_symlink("../dotfiles/widgets.json", link);
    std::filesystem::create_symlink(scratch / "kept.json", scratch / "dotfiles/widgets.json");
    std::ofstream(scratch / "kept.json") << writePlacements(widget("Old")).value();
    std::filesystem::permissions(scratch / "kept.json", std::filesystem::perms(0600));
    EXPECT_EQ(store.load(), widget("Old"));
    store.save(widget("New"));
    EXPECT_EQ(std::filesystem::read_symlink(link), "../dotfiles/widgets.json");
    EXPECT_EQ(std::filesystem::read_symlink(scratch / "dotfiles/widgets.json"), scratch / "kept.json");
    EXPECT_EQ(readFile(scratch / "kept.json", systemFileSystem()).value(),
              writePlacements(widget("New")).value());
    EXPECT_EQ(std::filesystem::status(scratch / "kept.json").permissions(), std::filesystem::perms(0600));
    EXPECT_THAT(reports, IsEmpty());
}

TEST_F(LinkedPlacementsTest, ASaveMakesTheFileThatALinkLeadsToInVain) {
    std::filesystem::create_symlink("../dotfiles/widgets.json", link);
    EXPECT_EQ(store.load(), std::nullopt);
    store.save(widget("New"));
    EXPECT_TRUE(std::filesystem::is_symlink(link));
    EXPECT_EQ(readFile(scratch / "dotfiles/widgets.json", systemFileSystem()).value(),
              writePlacements(widget("New")).value());
}

TEST_F(LinkedPlacementsTest, ALinkIntoAFolderThatIsMissingIsReportedAndStays) {
    std::filesystem::create_symlink("../gone/widgets.json", link);
    store.save(widget("New"));
    EXPECT_TRUE(std::filesystem::is_symlink(link));
    EXPECT_THAT(reports, ElementsAre(HasSubstr("cannot be saved")));
}

TEST_F(LinkedPlacementsTest, LinksInACircleAreReportedAndStay) {
    std::filesystem::create_symlink("placements.json", link);
    store.save(widget("New"));
    EXPECT_TRUE(std::filesystem::is_symlink(link));
    EXPECT_THAT(reports, ElementsAre(HasSubstr("cannot be saved")));
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
