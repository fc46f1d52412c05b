#include "core/WidgetJournal.h"
#include "core/WidgetShared.h"
#include "core/WidgetSnapshotStore.h"
#include "platform/FileHandle.h"
#include "tests/core/SampleJournal.h"
#include "tests/core/SampleSnapshot.h"
#include "tests/fakes/MemoryFileSystem.h"
#include "tests/fakes/ScopedEnvironment.h"

#include <algorithm>
#include <cerrno>
#include <limits>
#include <set>

#include <gmock/gmock.h>

/// Widgets, a companion and an older program at work on one disk, in any order, while processes are killed
/// and the power goes within any of their operations, again and again.
namespace vantel {
namespace {

using testing::Lasting;
using testing::MemoryDisk;
using testing::MemoryFileSystem;
using testing::noon;
using testing::sampleEntry;
using testing::sampleUuid;

/// What was begun, and what was reported.
struct Ledger {
    std::set<int> begun;
    std::set<int> acknowledged;
    std::set<int> handled; ///< stored by the companion, which may remove them
    std::int64_t lastBegun = 0;
    std::int64_t lastWritten = 0; ///< the generation of the last snapshot that was acknowledged
    bool isStamped = false;       ///< since then
};

int numberOf(const WidgetJournalEntry& entry) {
    return entry.id.bytes.back();
}

class Program {
public:
    explicit Program(unsigned seed)
        : m_random(seed) {}

    void run() {
        for (int step = 1; step < 60 && !::testing::Test::HasFailure(); ++step) {
            const bool isStruck = chance(3);
            if (isStruck)
                strikeAt(1 + below(chance(2) ? 12 : 40));
            operate(step);
            if (isStruck)
                restart();
            check(step);
        }
    }

private:
    int below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }
    bool chance(int oneIn) { return below(oneIn) == 0; }

    void strikeAt(int nth) {
        m_lastCall = m_files.faults().calls().size() + static_cast<std::size_t>(nth) - 1;
        m_files.faults().fail(nth, EIO, Lasting::fromThenOn);
    }

    /// Whoever was struck reports nothing any more, whatever the operation makes of its failure.
    bool isStruck() const { return m_files.faults().calls().size() > m_lastCall; }

    /// After a kill, with all that was written; or after a power cut.
    void restart() {
        const MemoryDisk& disk = m_files.disk();
        m_files = MemoryFileSystem(chance(2) ? disk : disk.afterPowerCut(m_random));
        m_lastCall = std::numeric_limits<std::size_t>::max();
    }

    void operate(int step) {
        switch (below(8)) {
        case 0:
            return drain();
        case 1:
            return publish();
        case 2:
            return stamp();
        case 3:
            return appendAsAnOlderProgram(step);
        default:
            return append(step);
        }
    }

    void append(int number) {
        m_ledger.begun.insert(number);
        if (WidgetJournal::append(sampleEntry(number), m_files) && !isStruck())
            m_ledger.acknowledged.insert(number);
    }

    /// It locks, mends a torn end, appends and syncs, and knows no redo copy.
    void appendAsAnOlderProgram(int number) {
        m_ledger.begun.insert(number);
        const FileURL journal = WidgetShared::journalURL().value();
        const auto appending = [&](FileHandle& handle) -> Result<void> {
            const auto before = handle.readToEnd();
            if (!before || before->empty())
                return std::unexpected(fileReadUnknown());
            const std::string line = testing::sampleLine(number);
            if (auto written = handle.write(before->ends_with('\n') ? line : '\n' + line); !written)
                return written;
            return handle.synchronizeData();
        };
        if (WidgetShared::withLockedFile(journal, appending, m_files) && !isStruck())
            m_ledger.acknowledged.insert(number);
    }

    /// Reads, stores, writes the snapshot, and removes some or all of what it has stored.
    void drain() {
        const auto entries = WidgetJournal::pending(m_files);
        if (!entries)
            return;
        std::set<Uuid> ids;
        for (const WidgetJournalEntry& entry : *entries)
            if (m_ledger.handled.contains(numberOf(entry)) || !chance(3))
                ids.insert(entry.id);
        for (const Uuid& id : ids)
            m_ledger.handled.insert(id.bytes.back());
        publish();
        if (ids.size() == entries->size() && chance(2))
            std::ignore = WidgetJournal::removeAll(m_files);
        else
            std::ignore = WidgetJournal::remove(ids, m_files);
    }

    void publish() {
        WidgetSnapshot snapshot = testing::sampleSnapshot();
        snapshot.triageCount = ++m_ledger.lastBegun;
        if (!m_store.write(snapshot, m_files) || isStruck())
            return;
        m_ledger.lastWritten = snapshot.triageCount;
        m_ledger.isStamped = false;
    }

    void stamp() {
        if (m_store.applyCompletion("a", noon, "account", m_files).value_or(false) && !isStruck())
            restamped();
    }

    /// A stamp writes what was there, which may be a snapshot that was written but not acknowledged.
    void restamped() {
        MemoryFileSystem copy(m_files.disk());
        m_ledger.lastWritten = m_store.load(copy).value().triageCount;
        m_ledger.isStamped = true;
    }

    void check(int step) {
        SCOPED_TRACE("step " + std::to_string(step));
        MemoryFileSystem copy(m_files.disk());
        checkEntries(WidgetJournal::pending(copy).value());
        checkSnapshot(m_store.load(copy));
    }

    void checkEntries(const std::vector<WidgetJournalEntry>& entries) {
        std::set<int> found;
        for (const WidgetJournalEntry& entry : entries) {
            EXPECT_TRUE(found.insert(numberOf(entry)).second) << "twice: " << numberOf(entry);
            EXPECT_EQ(entry, sampleEntry(numberOf(entry)));
        }
        EXPECT_TRUE(std::ranges::includes(m_ledger.begun, found));
        for (const int number : m_ledger.acknowledged)
            EXPECT_TRUE(found.contains(number) || m_ledger.handled.contains(number)) << "lost: " << number;
    }

    void checkSnapshot(const std::optional<WidgetSnapshot>& found) {
        if (!found) {
            EXPECT_EQ(m_ledger.lastWritten, 0);
            return;
        }
        EXPECT_GE(found->triageCount, m_ledger.lastWritten);
        EXPECT_LE(found->triageCount, m_ledger.lastBegun);
        EXPECT_EQ(found->tasks.size(), 3U);
        const bool mustBeStamped = m_ledger.isStamped && found->triageCount == m_ledger.lastWritten;
        EXPECT_TRUE(found->tasks[0].completedAt == noon || !mustBeStamped);
    }

    std::mt19937 m_random;
    MemoryFileSystem m_files;
    std::size_t m_lastCall = std::numeric_limits<std::size_t>::max(); ///< before a strike
    Ledger m_ledger;
    WidgetSnapshotStore m_store{WidgetShared::snapshotURL().value(), WidgetShared::snapshotLockURL().value()};
};

struct PowerCutProgram : ::testing::TestWithParam<unsigned> {
    testing::ScopedEnvironment dataHome{"XDG_DATA_HOME", "/data"};
};

INSTANTIATE_TEST_SUITE_P(Seeds, PowerCutProgram, ::testing::Range(0U, 10U));

TEST_P(PowerCutProgram, LosesNothingThatWasAcknowledgedHoweverOftenItIsStruck) {
    for (unsigned i = 0; i < 10 && !HasFailure(); ++i) {
        SCOPED_TRACE("seed " + std::to_string(GetParam() * 10 + i));
        Program(GetParam() * 10 + i).run();
    }
}

} // namespace
} // namespace vantel
