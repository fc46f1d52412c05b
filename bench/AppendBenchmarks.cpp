#include "bench/Budgets.h"
#include "bench/SampleDocuments.h"
#include "bench/Scratch.h"
#include "core/WidgetJournal.h"

#include <cstdlib>

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace vantel::bench {

namespace {

WidgetJournalEntry entry() {
    return {.id = randomUuid(),
            .accountID = "acct-7f3a",
            .action = WidgetJournalEntry::Action::completeTodo,
            .todoID = "task-100042",
            .at = now()};
}

void append(benchmark::State& state) {
    ::setenv("XDG_DATA_HOME", emptyScratch("append").c_str(), 1);
    const WidgetJournalEntry line = entry();
    require(WidgetJournal::append(line).has_value()); // The first one makes the folders.
    for (auto _ : state)
        require(WidgetJournal::append(line).has_value());
}

void appendBare(const FileURL& journal, const std::string& line) {
    const int descriptor = ::open(journal.c_str(), O_RDWR | O_CREAT, 0644);
    require(::flock(descriptor, LOCK_EX) == 0);
    require(::lseek(descriptor, 0, SEEK_END) >= 0);
    require(::write(descriptor, line.data(), line.size()) == static_cast<ssize_t>(line.size()));
    require(::fdatasync(descriptor) == 0);
    require(::flock(descriptor, LOCK_UN) == 0);
    require(::close(descriptor) == 0);
}

/// The same line with nothing around the calls that it takes.
void bareAppend(benchmark::State& state) {
    const FileURL journal = emptyScratch("bare-append") / "journal";
    const std::string line = encodeJournalEntry(entry()).value() + '\n';
    appendBare(journal, line);
    for (auto _ : state)
        appendBare(journal, line);
}

BENCHMARK(append)->Apply(inManyShortTurns);
BENCHMARK(bareAppend)->Apply(inManyShortTurns);

const bool declared = declare({"append", "bareAppend", 1.1});

} // namespace

} // namespace vantel::bench
