#include "core/WidgetJournal.h"
#include "core/WidgetShared.h"
#include "core/WidgetSnapshot.h"
#include "tests/core/SampleJournal.h"
#include "tests/core/SampleSnapshot.h"
#include "tests/fakes/ChildProcess.h"
#include "tests/fakes/LockProbe.h"
#include "tests/fakes/ScratchFolder.h"

#include <algorithm>
#include <csignal>
#include <map>
#include <set>
#include <sstream>

#include <gmock/gmock.h>

/// The shared container under several real processes at once.
namespace vantel {
namespace {

using testing::ChildProcess;
using testing::isFree;

struct Concurrency : ::testing::Test {
    testing::ScratchDataHome dataHome{testing::quickFolder()};

    static ChildProcess start(std::vector<std::string> arguments) {
        return {VANTEL_STORAGE_WORKER, std::move(arguments)};
    }

    static bool isAnyRunning(std::vector<ChildProcess>& processes) {
        return std::ranges::any_of(processes, &ChildProcess::isRunning);
    }

    static void expectSuccess(std::vector<ChildProcess>& processes) {
        for (ChildProcess& process : processes)
            EXPECT_EQ(process.wait(), 0);
    }
};

/// What a companion does again and again: takes the pending entries, handles them, and removes what it
/// handled. Every line must be an entry, whole, the next one of its writer.
class Drain {
public:
    void run() {
        std::istringstream lines(readJournal());
        std::set<Uuid> ids;
        for (std::string line; std::getline(lines, line);) {
            ASSERT_FALSE(lines.eof()) << "torn: " << line;
            const auto entry = decodeJournalEntry(line);
            ASSERT_TRUE(entry) << "torn: " << line;
            ASSERT_EQ(entry->todoID, std::to_string(m_next[entry->accountID]++)) << "of " << entry->accountID;
            ids.insert(entry->id);
        }
        ASSERT_TRUE(WidgetJournal::remove(ids));
    }

    const std::map<std::string, int>& countByWriter() const { return m_next; }

private:
    static std::string readJournal() {
        const auto reading = [](FileHandle& handle) { return handle.readToEnd(); };
        return WidgetShared::withLockedFile(WidgetShared::journalURL().value(), reading).value();
    }

    std::map<std::string, int> m_next; ///< the number of each writer's next entry
};

TEST_F(Concurrency, EightWritersAndADrainLoseTearAndRepeatNothingAndKeepEachWritersOrder) {
    constexpr int writers = 8;
    constexpr int lines = 5000;
    std::vector<ChildProcess> processes;
    for (int writer = 1; writer <= writers; ++writer)
        processes.push_back(start({"append", std::to_string(writer), std::to_string(lines)}));
    Drain drain;
    while (isAnyRunning(processes))
        ASSERT_NO_FATAL_FAILURE(drain.run());
    ASSERT_NO_FATAL_FAILURE(drain.run());
    expectSuccess(processes);
    EXPECT_EQ(drain.countByWriter().size(), static_cast<std::size_t>(writers));
    for (const auto& [writer, count] : drain.countByWriter())
        EXPECT_EQ(count, lines) << writer;
    EXPECT_EQ(WidgetJournal::pending().value().size(), 0U);
}

TEST_F(Concurrency, KilledWritersLoseNoEntryThatTheyReported) {
    constexpr int writers = 20;
    std::vector<std::set<std::string>> reported(writers);
    for (int writer = 0; writer < writers; ++writer) {
        std::vector<ChildProcess> processes;
        processes.push_back(start({"appendForEver", std::to_string(writer)}));
        processes.push_back(start({"append", "99", "50"}));
        for (int i = 0; i < 50; ++i)
            reported[static_cast<std::size_t>(writer)].insert(processes.front().readLine());
        processes.front().kill();
        EXPECT_EQ(processes.front().wait(), 128 + SIGKILL);
        EXPECT_EQ(processes.back().wait(), 0);
    }
    std::vector<std::set<std::string>> found(100);
    const auto entries = WidgetJournal::pending().value();
    for (const WidgetJournalEntry& entry : entries)
        found[entry.id.bytes[0]].insert(entry.todoID);
    for (std::size_t writer = 0; writer < writers; ++writer)
        EXPECT_TRUE(std::ranges::includes(found[writer], reported[writer])) << writer;
}

/// What a reader may see of the snapshot while completions and a companion's changes race: never less than
/// before.
class Watch {
public:
    void run() {
        const auto snapshot = WidgetSnapshot::load();
        ASSERT_TRUE(snapshot) << "a reader found no snapshot";
        ASSERT_GE(snapshot->triageCount, m_rounds) << "an older snapshot is back";
        m_rounds = snapshot->triageCount;
        std::set<std::string> completed;
        for (const WidgetTask& task : snapshot->tasks) {
            ASSERT_FALSE(isDropped(task.id)) << task.id << " is back";
            if (task.completedAt)
                completed.insert(task.id);
        }
        ASSERT_TRUE(std::ranges::includes(completed, m_completed)) << "a stamp is gone";
        m_completed = std::move(completed);
    }

private:
    /// Each round that was counted has dropped one task.
    bool isDropped(const std::string& id) const {
        return id.starts_with("old-") && std::stoi(id.substr(4)) < m_rounds;
    }

    std::int64_t m_rounds = 0;
    std::set<std::string> m_completed;
};

WidgetTask openTask(const std::string& id) {
    return {.id = id, .summary = "", .priorityRank = 0, .priorityScore = 0};
}

TEST_F(Concurrency, CompletionsAndACompanionsChangesLoseNoStampAndBringNoTaskBack) {
    constexpr int completers = 4;
    constexpr int tasksEach = 30;
    constexpr int rounds = 60;
    WidgetSnapshot snapshot = testing::sampleSnapshot("account");
    snapshot.triageCount = 0;
    snapshot.tasks.clear();
    for (int number = 0; number < completers * tasksEach; ++number)
        snapshot.tasks.push_back(openTask("task-" + std::to_string(number)));
    for (int round = 0; round < rounds; ++round)
        snapshot.tasks.push_back(openTask("old-" + std::to_string(round)));
    ASSERT_TRUE(snapshot.write());

    std::vector<ChildProcess> processes;
    processes.push_back(start({"publish", std::to_string(rounds)}));
    for (int i = 0; i < completers; ++i)
        processes.push_back(start({"complete", std::to_string(i * tasksEach), std::to_string(tasksEach)}));
    Watch watch;
    while (isAnyRunning(processes))
        ASSERT_NO_FATAL_FAILURE(watch.run());
    expectSuccess(processes);

    std::erase_if(snapshot.tasks, [](const WidgetTask& task) { return task.id.starts_with("old-"); });
    for (int number = 0; number < completers * tasksEach; ++number)
        snapshot.tasks[static_cast<std::size_t>(number)].completedAt = instantFromReference(number);
    for (int round = 0; round < rounds; ++round)
        snapshot.tasks.push_back(openTask("new-" + std::to_string(round)));
    snapshot.triageCount = rounds;
    EXPECT_EQ(WidgetSnapshot::load(), snapshot);
}

TEST_F(Concurrency, KillingTheHolderOfALockFreesIt) {
    const auto loading = [] { EXPECT_EQ(WidgetSnapshot::load(), std::nullopt); };
    const auto reading = [] { EXPECT_TRUE(WidgetJournal::pending()); };
    const std::pair<FileURL, std::function<void()>> locks[] = {
        {WidgetShared::snapshotLockURL().value(), loading}, {WidgetShared::journalURL().value(), reading}};
    for (const auto& [file, operate] : locks) {
        ChildProcess holder = start({"hold", file.string()});
        ASSERT_EQ(holder.readLine(), "locked");
        EXPECT_FALSE(isFree(file));
        holder.kill();
        EXPECT_EQ(holder.wait(), 128 + SIGKILL);
        EXPECT_TRUE(isFree(file));
        operate();
    }
}

TEST_F(Concurrency, TheTwoLocksAreIndependent) {
    ChildProcess holder = start({"hold", WidgetShared::snapshotLockURL().value().string()});
    ASSERT_EQ(holder.readLine(), "locked");
    EXPECT_TRUE(WidgetJournal::append(testing::sampleEntry(1)));
    EXPECT_EQ(WidgetJournal::pending().value().size(), 1U);
}

} // namespace
} // namespace vantel
