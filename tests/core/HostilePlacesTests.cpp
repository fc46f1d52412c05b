#include "core/WidgetJournal.h"
#include "core/WidgetShared.h"
#include "core/WidgetSnapshot.h"
#include "tests/core/SampleJournal.h"
#include "tests/core/SampleSnapshot.h"
#include "tests/fakes/ChildProcess.h"
#include "tests/fakes/LockProbe.h"
#include "tests/fakes/ScratchFolder.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <thread>

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

/// Something else in place of the three files, and a container that changes under the programs. Nothing may
/// block for ever or read without bound: a test that does so is ended by the one who runs it.
namespace vantel {
namespace {

using testing::isFree;
using testing::sampleEntry;
using testing::sampleSnapshot;
using testing::sampleUuid;

/// What lies where a file should.
struct Obstacle {
    const char* name;
    std::function<void(const FileURL&)> put;
};

void PrintTo(const Obstacle& obstacle, std::ostream* stream) {
    *stream << obstacle.name;
}

std::function<void(const FileURL&)> linkTo(const char* target) {
    return [target](const FileURL& file) { std::filesystem::create_symlink(target, file); };
}

void putHugeFile(const FileURL& file) {
    std::ofstream(file) << '\n';
    std::filesystem::resize_file(file, std::uintmax_t{1} << 30U);
}

/// The other end stays open, and never says anything.
void putTerminal(const FileURL& file) {
    static const int otherEnd = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    ASSERT_EQ(::grantpt(otherEnd), 0);
    ASSERT_EQ(::unlockpt(otherEnd), 0);
    std::filesystem::create_symlink(::ptsname(otherEnd), file);
}

const Obstacle obstacles[] = {
    {"fifo", [](const FileURL& file) { ASSERT_EQ(::mkfifo(file.c_str(), 0600), 0); }},
    {"folder", [](const FileURL& file) { std::filesystem::create_directory(file); }},
    {"linkToZeros", linkTo("/dev/zero")},
    {"linkToNothing", linkTo("/dev/null")},
    {"linkToAFullDevice", linkTo("/dev/full")},
    {"linkToItself", [](const FileURL& file) { std::filesystem::create_symlink(file.filename(), file); }},
    {"linkToNowhere", linkTo("/nowhere/at/all")},
    {"hugeFile", putHugeFile},
    {"linkToATerminal", putTerminal}};

struct HostilePlaces : ::testing::TestWithParam<Obstacle> {
    testing::ScratchDataHome dataHome;

    void SetUp() override { std::filesystem::create_directories(WidgetShared::containerURL().value()); }

    static std::string nameOf(const ::testing::TestParamInfo<Obstacle>& info) { return info.param.name; }
};

INSTANTIATE_TEST_SUITE_P(Of, HostilePlaces, ::testing::ValuesIn(obstacles), HostilePlaces::nameOf);

TEST_P(HostilePlaces, InPlaceOfTheJournalAnEntryIsReportedOnlyIfItIsPending) {
    GetParam().put(WidgetShared::journalURL().value());
    const bool isReported = WidgetJournal::append(sampleEntry(1)).has_value();
    const auto entries = WidgetJournal::pending();
    EXPECT_TRUE(!isReported || (entries && *entries == std::vector{sampleEntry(1)}));
}

TEST_P(HostilePlaces, InPlaceOfTheJournalRemovingEnds) {
    GetParam().put(WidgetShared::journalURL().value());
    std::ignore = WidgetJournal::remove({sampleUuid(1)});
    std::ignore = WidgetJournal::removeAll();
    EXPECT_LE(WidgetJournal::pending().value_or(std::vector<WidgetJournalEntry>()).size(), 0U);
}

TEST_P(HostilePlaces, InPlaceOfTheRedoCopyAnEntryIsReportedOnlyIfItIsPending) {
    GetParam().put(WidgetShared::containerURL().value() / "widget-journal.redo");
    const bool isReported = WidgetJournal::append(sampleEntry(1)).has_value();
    const auto entries = WidgetJournal::pending();
    EXPECT_TRUE(!isReported || (entries && *entries == std::vector{sampleEntry(1)}));
    std::ignore = WidgetJournal::remove({sampleUuid(2)});
    EXPECT_TRUE(!isReported || WidgetJournal::pending().value() == std::vector{sampleEntry(1)});
}

TEST_P(HostilePlaces, InPlaceOfTheSnapshotThereIsNoneUntilItIsWritten) {
    GetParam().put(WidgetShared::snapshotURL().value());
    EXPECT_EQ(WidgetSnapshot::load(), std::nullopt);
    EXPECT_FALSE(WidgetSnapshot::applyCompletion("a", instantFromReference(0), "account").value());
    const bool isWritten = sampleSnapshot().write().has_value();
    EXPECT_EQ(WidgetSnapshot::load(), isWritten ? std::optional(sampleSnapshot()) : std::nullopt);
}

TEST_P(HostilePlaces, InPlaceOfTheSnapshotRemovingTakesItAwayOrFails) {
    const FileURL file = WidgetShared::snapshotURL().value();
    GetParam().put(file);
    const bool isRemoved = WidgetSnapshot::remove().has_value();
    EXPECT_TRUE(!isRemoved || !systemFileSystem().status(file)) << "it is still there";
}

/// A lock can lie on almost anything; what matters is that whoever has it does what it says.
TEST_P(HostilePlaces, InPlaceOfTheLockASnapshotIsReportedOnlyIfItIsThere) {
    GetParam().put(WidgetShared::snapshotLockURL().value());
    const bool isWritten = sampleSnapshot().write().has_value();
    EXPECT_TRUE(!isWritten || WidgetSnapshot::load() == sampleSnapshot());
}

struct ChangingContainer : ::testing::Test {
    testing::ScratchDataHome dataHome{testing::quickFolder()};
    FileURL container = WidgetShared::containerURL().value();

    /// Until /proc/locks shows that somebody waits for the lock on the file.
    static void waitForAWaiterOn(const FileURL& file) {
        struct stat status{};
        ASSERT_EQ(::stat(file.c_str(), &status), 0);
        const std::string inode = ":" + std::to_string(status.st_ino) + " ";
        for (bool isAwaited = false; !isAwaited; std::this_thread::yield()) {
            std::ifstream locks("/proc/locks");
            for (std::string line; std::getline(locks, line);)
                isAwaited |= line.find("->") != std::string::npos && line.find(inode) != std::string::npos;
        }
    }

    static testing::ChildProcess startHolder(const char* command, const FileURL& lock) {
        return {VANTEL_STORAGE_WORKER, {command, lock.string()}};
    }
};

TEST_F(ChangingContainer, OneThatIsRemovedIsMadeAgainByTheNextOperation) {
    for (int round = 0; round < 3; ++round) {
        ASSERT_TRUE(WidgetJournal::append(sampleEntry(1)));
        ASSERT_TRUE(sampleSnapshot().write());
        EXPECT_EQ(WidgetJournal::pending().value().size(), 1U);
        EXPECT_EQ(WidgetSnapshot::load(), sampleSnapshot());
        std::filesystem::remove_all(container);
    }
}

/// The waiting append would otherwise go to a file that has no name any more.
TEST_F(ChangingContainer, AnEntryThatWaitedForTheLockOfARemovedJournalGoesToTheNewOne) {
    testing::ChildProcess holder = startHolder("hold", WidgetShared::journalURL().value());
    ASSERT_EQ(holder.readLine(), "locked");
    testing::ChildProcess waiting(VANTEL_STORAGE_WORKER, {"append", "1", "1"});
    waitForAWaiterOn(WidgetShared::journalURL().value());
    std::filesystem::remove_all(container);
    ASSERT_TRUE(WidgetJournal::append(sampleEntry(2)));
    holder.kill();
    EXPECT_EQ(waiting.wait(), 0);
    EXPECT_EQ(WidgetJournal::pending().value().size(), 2U);
}

TEST_F(ChangingContainer, EveryUmaskThatLeavesTheUserHisRightsGivesPrivateFoldersAndWorkingFiles) {
    for (mode_t mask = 0; mask <= 0077; ++mask) {
        std::filesystem::remove_all(container.parent_path());
        const mode_t before = ::umask(mask);
        const bool isDone = WidgetJournal::append(sampleEntry(1)) && WidgetJournal::append(sampleEntry(2)) &&
                            WidgetJournal::remove({sampleUuid(1)}) && sampleSnapshot().write() &&
                            WidgetSnapshot::applyCompletion("a", instantFromReference(0), "account");
        ::umask(before);
        EXPECT_TRUE(isDone) << mask;
        EXPECT_EQ(WidgetJournal::pending().value(), std::vector{sampleEntry(2)}) << mask;
        EXPECT_EQ(systemFileSystem().status(container)->mode, 0700U) << mask;
        for (const FileURL& file :
             {*WidgetShared::journalURL(), *WidgetShared::snapshotURL(), *WidgetShared::snapshotLockURL()})
            EXPECT_EQ(systemFileSystem().status(file)->mode, 0644U & ~mask) << file << mask;
    }
}

/// A browser that was started to open a link outlives the widgets.
TEST_F(ChangingContainer, AChildThatWasStartedUnderALockDoesNotKeepItWhenItsParentIsKilled) {
    const FileURL lock = WidgetShared::snapshotLockURL().value();
    testing::ChildProcess holder = startHolder("holdWithChild", lock);
    const pid_t child = std::stoi(holder.readLine());
    EXPECT_FALSE(isFree(lock));
    holder.kill();
    holder.wait();
    EXPECT_EQ(::kill(child, 0), 0);
    EXPECT_TRUE(isFree(lock));
    EXPECT_EQ(::kill(child, SIGKILL), 0);
}

} // namespace
} // namespace vantel
