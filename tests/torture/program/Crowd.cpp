#include "tests/torture/program/Crowd.h"

#include "core/WidgetJournal.h"
#include "core/WidgetSnapshot.h"
#include "tests/torture/program/Operations.h"
#include "tests/torture/program/Report.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <csignal>
#include <functional>
#include <random>
#include <set>
#include <span>
#include <thread>

#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vantel::torture {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t mostWriters = 6;
constexpr std::uint32_t mostEntries = 8'000'000; ///< of one writer
constexpr int tasks = 40;

/// What all processes know of each other. It outlives those that are killed, as the user's memory and the
/// companion's own store do.
struct Ledger {
    enum : std::uint8_t { acknowledged = 1, carriedOut = 2, removed = 4 };

    std::array<std::atomic<std::uint32_t>, mostWriters> begun;
    std::array<std::atomic<std::uint32_t>, mostWriters> lastSeen; ///< by the drainer, in the journal's order
    std::atomic<long> operations;
    std::atomic<long> longestWait; ///< in microseconds
    std::atomic<long> offeredAgain;
    std::atomic<long> wrong;
    std::atomic<std::int64_t> round; ///< of the companion's snapshots: the last one that was written
    std::array<std::atomic<bool>, tasks> stamped;
    std::atomic<bool> mayEnd;
    std::array<std::array<std::atomic<std::uint8_t>, mostEntries>, mostWriters> entries;
};

Ledger& ledger() {
    static auto* const memory = static_cast<Ledger*>(::mmap(
        nullptr, sizeof(Ledger), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0));
    return *memory;
}

void expect(bool holds, const char* what) {
    if (holds)
        return;
    ++ledger().wrong;
    std::cout << "WRONG: " << what << std::endl;
}

/// Runs one operation and notes how long it took, which is mostly waiting for others.
template <typename Operate>
auto timed(Operate operate) {
    const auto began = Clock::now();
    auto result = operate();
    const long took = std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - began).count();
    long longest = ledger().longestWait;
    while (took > longest && !ledger().longestWait.compare_exchange_weak(longest, took)) {
    }
    ++ledger().operations;
    return result;
}

WidgetJournalEntry entryOf(std::size_t writer, std::uint32_t number) {
    WidgetJournalEntry entry{.id = {},
                             .accountID = "account",
                             .action = WidgetJournalEntry::Action::completeTodo,
                             .todoID = std::to_string(number),
                             .at = instantFromReference(number)};
    entry.id.bytes[0] = static_cast<std::uint8_t>(writer);
    for (std::size_t i = 0; i < 4; ++i)
        entry.id.bytes[15 - i] = static_cast<std::uint8_t>(number >> (8 * i));
    return entry;
}

std::size_t writerOf(const WidgetJournalEntry& entry) {
    return entry.id.bytes[0];
}

std::uint32_t numberOf(const WidgetJournalEntry& entry) {
    std::uint32_t number = 0;
    for (std::size_t i = 12; i < 16; ++i)
        number = number << 8U | entry.id.bytes[i];
    return number;
}

std::atomic<std::uint8_t>& noteOf(const WidgetJournalEntry& entry) {
    return ledger().entries.at(writerOf(entry)).at(numberOf(entry));
}

/// A click, and what the user remembers of it. Waits while the companion lags far behind: users click slowly.
void write(std::size_t writer) {
    constexpr std::uint32_t farBehind = 300;
    while (ledger().begun.at(writer) > ledger().lastSeen.at(writer) + farBehind && !ledger().mayEnd)
        ::usleep(100);
    const auto entry = entryOf(writer, ledger().begun.at(writer)++);
    const auto appended = timed([&] { return WidgetJournal::append(entry); });
    expect(appended.has_value(), "an append failed");
    if (appended)
        noteOf(entry) |= Ledger::acknowledged;
}

/// Carries out by id, as a companion's own store does: at once, and for good.
void carryOut(const WidgetJournalEntry& entry) {
    const std::uint8_t before = noteOf(entry).fetch_or(Ledger::carriedOut);
    expect((before & Ledger::removed) == 0, "an entry is back that was removed");
    if ((before & Ledger::carriedOut) != 0) {
        ++ledger().offeredAgain;
        return;
    }
    const std::uint32_t last = ledger().lastSeen.at(writerOf(entry)).exchange(numberOf(entry) + 1);
    expect(last <= numberOf(entry), "a writer's entries are out of order");
}

void expectEachOnce(const std::vector<WidgetJournalEntry>& entries) {
    std::set<Uuid> ids;
    for (const WidgetJournalEntry& entry : entries)
        expect(ids.insert(entry.id).second, "an entry stands in the journal twice");
}

/// Carries out the older half of what waits, so that most rewrites leave something that nobody has carried
/// out.
void drain() {
    const auto entries = timed([] { return WidgetJournal::pending(); });
    expect(entries.has_value(), "the journal cannot be read");
    if (!entries)
        return;
    expectEachOnce(*entries);
    const std::span<const WidgetJournalEntry> older(entries->data(), (entries->size() + 1) / 2);
    std::set<Uuid> ids;
    for (const WidgetJournalEntry& entry : older) {
        carryOut(entry);
        ids.insert(entry.id);
    }
    const auto removed = timed([&] { return WidgetJournal::remove(ids); });
    expect(removed.has_value(), "a removal failed");
    if (!removed)
        return;
    for (const WidgetJournalEntry& entry : older)
        noteOf(entry) |= Ledger::removed;
}

WidgetSnapshot snapshotOf(std::int64_t round) {
    WidgetSnapshot snapshot{.version = WidgetSnapshot::currentVersion,
                            .accountID = "account",
                            .generatedAt = instantFromReference(static_cast<double>(round)),
                            .tasks = {},
                            .triageCount = round,
                            .snoozedCount = round,
                            .events = {},
                            .allDayChips = {},
                            .horizon = {}};
    for (int number = 0; number < tasks; ++number)
        snapshot.tasks.push_back(
            {.id = std::to_string(number), .summary = "", .priorityRank = round, .priorityScore = 0});
    return snapshot;
}

void stampFrom(std::size_t first, std::int64_t round) {
    for (std::size_t number = first; number < tasks; number += 16) {
        const Instant at = instantFromReference(static_cast<double>(round));
        const auto stamped =
            timed([&] { return WidgetSnapshot::applyCompletion(std::to_string(number), at, "account"); });
        expect(stamped.value_or(false), "a stamp failed");
        ledger().stamped.at(number) = stamped.value_or(false);
    }
}

void judgeStamps(const WidgetSnapshot& snapshot) {
    for (std::size_t number = 0; number < tasks; ++number)
        expect(!ledger().stamped.at(number) || snapshot.tasks.at(number).completedAt.has_value(),
               "a stamp is lost");
}

/// A companion that publishes and two widgets that stamp at the same time, in one process: so no stamp is
/// undone by a publication.
void complete() {
    const std::int64_t round = ledger().round + 1;
    for (auto& stamped : ledger().stamped)
        stamped = false;
    const auto written = timed([&] { return snapshotOf(round).write(); });
    expect(written.has_value(), "a snapshot cannot be written");
    ledger().round = round;
    std::thread other(stampFrom, 8, round);
    stampFrom(0, round);
    other.join();
    const auto snapshot = timed([] { return WidgetSnapshot::load(); });
    expect(snapshot.has_value(), "a stamped snapshot cannot be read");
    if (snapshot)
        judgeStamps(*snapshot);
}

/// A generation is whole when all its parts are of the same round.
bool isWhole(const WidgetSnapshot& snapshot) {
    const std::int64_t round = snapshot.triageCount;
    return snapshot.snoozedCount == round && snapshot.tasks.size() == tasks &&
           std::ranges::all_of(snapshot.tasks, [&](const WidgetTask& task) {
               return task.priorityRank == round &&
                      task.completedAt.value_or(snapshot.generatedAt) == snapshot.generatedAt;
           });
}

void read() {
    const std::int64_t before = ledger().round;
    const auto snapshot = timed([] { return WidgetSnapshot::load(); });
    expect(snapshot.has_value(), "a reader found no snapshot");
    expect(!snapshot || isWhole(*snapshot), "a reader saw half a snapshot");
    expect(!snapshot || snapshot->triageCount >= before, "a reader saw an older snapshot");
    const auto entries = timed([] { return WidgetJournal::pending(); });
    expect(entries.has_value(), "a reader found no journal");
    if (entries)
        expectEachOnce(*entries);
}

using Work = std::function<void()>;

/// Does its work until it is killed or the crowd may end.
pid_t start(const Work& work) {
    const pid_t process = ::fork();
    if (process != 0)
        return process;
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    while (!ledger().mayEnd)
        work();
    ::_exit(0);
}

std::vector<Work> crowd(std::size_t writers, int readers) {
    std::vector<Work> works;
    for (std::size_t writer = 0; writer < writers; ++writer)
        works.emplace_back([writer] { write(writer); });
    works.emplace_back(drain);
    works.emplace_back(complete);
    for (int reader = 0; reader < readers; ++reader)
        works.emplace_back(read);
    return works;
}

std::vector<pid_t> startAll(const std::vector<Work>& works) {
    std::vector<pid_t> processes;
    for (const Work& work : works)
        processes.push_back(start(work));
    return processes;
}

void end(pid_t process) {
    ::kill(process, SIGKILL);
    ::waitpid(process, nullptr, 0);
}

/// With nobody left, both locks are free at once, and a later use leaves nothing behind.
void judgeQuiet() {
    expect(areLocksFree(), "a lock outlived its process");
    const auto snapshot = WidgetSnapshot::load();
    expect(snapshot && isWhole(*snapshot), "the snapshot is not whole");
    if (snapshot && snapshot->triageCount == ledger().round)
        judgeStamps(*snapshot);
}

/// Drains what is left, as the next companion does, and counts what the user was told and nobody did.
void settle(std::size_t writers) {
    while (!WidgetJournal::pending().value().empty())
        drain();
    long told = 0;
    long lost = 0;
    for (std::size_t writer = 0; writer < writers; ++writer)
        for (std::uint32_t number = 0; number < ledger().begun.at(writer); ++number) {
            const std::uint8_t note = ledger().entries.at(writer).at(number);
            told += note & Ledger::acknowledged;
            lost += (note & (Ledger::acknowledged | Ledger::carriedOut)) == Ledger::acknowledged ? 1 : 0;
        }
    expect(lost == 0, "acknowledged entries are lost");
    expect(leftAfterUse().empty(), "a later use left a temporary file");
    std::cout << told << " entries acknowledged, " << lost << " lost; " << ledger().offeredAgain
              << " offered again to the companion, which had carried them out; " << ledger().operations
              << " operations, longest wait " << static_cast<double>(ledger().longestWait) / 1000 << " ms; "
              << ledger().wrong << " wrong" << std::endl;
}

void begin() {
    ledger(); // Before there are children, so that they share it.
    expect(snapshotOf(0).write().has_value(), "the first snapshot cannot be written");
}

int status() {
    return ledger().wrong == 0 ? 0 : 1;
}

} // namespace

int killAtRandom(int kills) {
    constexpr std::size_t writers = 4;
    constexpr int killsTogether = 50;
    begin();
    const std::vector<Work> works = crowd(writers, 2);
    std::vector<pid_t> processes = startAll(works);
    std::mt19937 random(20261121);
    std::uniform_int_distribution<std::size_t> anyone(0, works.size() - 1);
    std::uniform_int_distribution<useconds_t> aMoment(0, 8000);
    for (int kill = 1; kill <= kills; ++kill) {
        ::usleep(aMoment(random));
        if (kill % killsTogether == 0) {
            std::ranges::for_each(processes, end);
            judgeQuiet();
            processes = startAll(works);
            continue;
        }
        const std::size_t one = anyone(random);
        end(processes[one]);
        processes[one] = start(works[one]);
    }
    std::ranges::for_each(processes, end);
    judgeQuiet();
    std::cout << kills << " kills: ";
    settle(writers);
    return status();
}

int load(long operations) {
    constexpr std::size_t writers = 5;
    begin();
    const auto began = Clock::now();
    const std::vector<pid_t> processes = startAll(crowd(writers, 1));
    while (ledger().operations < operations)
        ::usleep(1000);
    ledger().mayEnd = true;
    for (const pid_t process : processes)
        ::waitpid(process, nullptr, 0);
    judgeQuiet();
    expect(ledger().offeredAgain == 0, "an entry was offered again, though nobody was killed");
    const double seconds = std::chrono::duration<double>(Clock::now() - began).count();
    std::cout << "8 processes, " << seconds << " s: ";
    settle(writers);
    return status();
}

} // namespace vantel::torture
