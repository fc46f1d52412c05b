#include "bench/Budgets.h"
#include "bench/SampleDocuments.h"
#include "bench/Scratch.h"
#include "core/WidgetSnapshotStore.h"

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace vantel::bench {

namespace {

void stamp(benchmark::State& state) {
    const FileURL folder = emptyScratch("stamp");
    const WidgetSnapshotStore store{folder / "snapshot", folder / "lock"};
    require(store.write(snapshotWith(tasksOfStampedDocument)).has_value());
    for (auto _ : state)
        require(store.applyCompletion("task-100042", now(), "acct-7f3a").value_or(false));
}

void replaceFile(const FileURL& folder, const std::string& bytes) {
    const FileURL temporary = folder / "temporary";
    const int file = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
    require(::write(file, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()));
    require(::fsync(file) == 0);
    require(::close(file) == 0);
    require(::rename(temporary.c_str(), (folder / "snapshot").c_str()) == 0);
    const int directory = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    require(::fsync(directory) == 0);
    require(::close(directory) == 0);
}

void readFile(const FileURL& folder, std::string& buffer) {
    const int file = ::open((folder / "snapshot").c_str(), O_RDONLY | O_CLOEXEC);
    require(::read(file, buffer.data(), buffer.size()) == static_cast<ssize_t>(buffer.size()));
    require(::close(file) == 0);
}

/// The same bytes, read and replaced under a lock, with no thought about what they say.
void bareStamp(benchmark::State& state) {
    const FileURL folder = emptyScratch("bare-stamp");
    const FileURL lockFile = folder / "lock";
    std::string bytes = documentWith(tasksOfStampedDocument);
    replaceFile(folder, bytes);
    for (auto _ : state) {
        const int lock = ::open(lockFile.c_str(), O_RDWR | O_CREAT, 0644);
        require(::flock(lock, LOCK_EX) == 0);
        readFile(folder, bytes);
        replaceFile(folder, bytes);
        require(::flock(lock, LOCK_UN) == 0);
        require(::close(lock) == 0);
    }
}

BENCHMARK(stamp)->Apply(inManyShortTurns);
BENCHMARK(bareStamp)->Apply(inManyShortTurns);

const bool declared = declare({"stamp", "bareStamp", 1.15});

} // namespace

} // namespace vantel::bench
