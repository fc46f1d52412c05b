#include "tests/torture/program/PowerCut.h"

#include "core/WidgetJournal.h"
#include "core/WidgetShared.h"
#include "core/WidgetSnapshot.h"
#include "tests/core/SampleSnapshot.h"
#include "tests/torture/program/Operations.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <random>
#include <set>
#include <vector>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

namespace vantel::torture {

using testing::noon;

namespace {

constexpr int taskCount = 80;

WidgetJournalEntry entryOf(int number) {
    WidgetJournalEntry entry{.id = {},
                             .accountID = "account",
                             .action = WidgetJournalEntry::Action::completeTodo,
                             .todoID = "t-" + std::to_string(number % taskCount),
                             .at = noon};
    entry.id.bytes[0] = 0xAA;
    entry.id.bytes[14] = static_cast<std::uint8_t>(number >> 8);
    entry.id.bytes[15] = static_cast<std::uint8_t>(number);
    return entry;
}

int numberOf(const Uuid& id) {
    return id.bytes[14] << 8 | id.bytes[15];
}

/// A document of several blocks, each of which says its generation.
WidgetSnapshot snapshotOf(int generation) {
    WidgetSnapshot snapshot{.version = WidgetSnapshot::currentVersion,
                            .accountID = "account",
                            .generatedAt = noon,
                            .tasks = {},
                            .triageCount = generation,
                            .snoozedCount = 0,
                            .events = {},
                            .allDayChips = {},
                            .horizon = {}};
    for (int i = 0; i < taskCount; ++i)
        snapshot.tasks.push_back(
            {.id = "t-" + std::to_string(i),
             .summary = "generation " + std::to_string(generation) + std::string(60, ' '),
             .priorityRank = i,
             .priorityScore = 0.5});
    return snapshot;
}

bool isWhole(const WidgetSnapshot& found) {
    WidgetSnapshot plain = found;
    for (WidgetTask& task : plain.tasks)
        task.completedAt.reset();
    return plain == snapshotOf(static_cast<int>(found.triageCount));
}

class Use {
public:
    explicit Use(const std::string& positionFile) {
        const int descriptor = ::open(positionFile.c_str(), O_RDONLY | O_CLOEXEC);
        m_position = static_cast<const volatile std::uint64_t*>(
            ::mmap(nullptr, sizeof *m_position, PROT_READ, MAP_SHARED, descriptor, 0));
        ::close(descriptor);
    }

    void round() {
        for (unsigned i = 0; i < 1 + m_random() % 3; ++i)
            click();
        disturb();
        if (m_random() % 3 == 0)
            publish();
        if (m_random() % 3 == 0)
            drain();
    }

private:
    void say(const char* what, int number) const {
        std::cout << what << ' ' << number << ' ' << *m_position << std::endl;
    }

    void click() {
        const int number = ++m_lastEntry;
        say("append", number);
        if (WidgetJournal::append(entryOf(number)))
            say("appended", number);
        if (WidgetSnapshot::applyCompletion(entryOf(number).todoID, noon, "account").value_or(false))
            say("stamped", number % taskCount);
    }

    void publish() {
        const int generation = ++m_lastGeneration;
        say("write", generation);
        if (snapshotOf(generation).write())
            say("written", generation);
    }

    /// In the order of a companion; its own store is what it says.
    void drain() {
        std::set<Uuid> ids;
        const std::vector<WidgetJournalEntry> pending = WidgetJournal::pending().value();
        for (const WidgetJournalEntry& entry : pending)
            if (m_random() % 4 != 0)
                ids.insert(entry.id);
        for (const Uuid& id : ids)
            say("handled", numberOf(id));
        publish();
        std::ignore = WidgetJournal::remove(ids);
    }

    /// Others write too, and never sync.
    void disturb() {
        const auto folder = WidgetShared::containerURL().value().parent_path();
        std::ofstream(folder / ("noise-" + std::to_string(m_random() % 5)))
            << std::string(m_random() % 30'000, 'n');
        std::error_code ignored;
        std::filesystem::rename(folder / "noise-1", folder / "noise-2", ignored);
    }

    const volatile std::uint64_t* m_position = nullptr;
    std::mt19937 m_random{1};
    int m_lastEntry = 0;
    int m_lastGeneration = 0;
};

void sayFound() {
    const auto entries = WidgetJournal::pending();
    if (!entries)
        std::cout << "unreadable" << std::endl;
    for (const WidgetJournalEntry& entry : entries.value_or(std::vector<WidgetJournalEntry>()))
        std::cout << (entry == entryOf(numberOf(entry.id)) ? "entry " : "torn ") << numberOf(entry.id)
                  << '\n';
    const auto snapshot = WidgetSnapshot::load();
    if (!snapshot)
        return;
    std::cout << (isWhole(*snapshot) ? "snapshot " : "torn ") << snapshot->triageCount << '\n';
    for (int i = 0; i < taskCount && isWhole(*snapshot); ++i)
        if (snapshot->tasks[static_cast<std::size_t>(i)].completedAt)
            std::cout << "stamped " << i << '\n';
}

} // namespace

int useUntilPowerCut(const std::string& positionFile, int rounds) {
    Use use(positionFile);
    for (int i = 0; i < rounds; ++i)
        use.round();
    return 0;
}

int lookAfterPowerCut() {
    sayFound();
    for (const std::string& name : leftAfterUse())
        std::cout << "left " << name << '\n';
    return 0;
}

} // namespace vantel::torture
