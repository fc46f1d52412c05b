#include "bench/Budgets.h"
#include "bench/SampleDocuments.h"
#include "core/SnapshotDocument.h"

#include <benchmark/benchmark.h>
#include <nlohmann/json.hpp>

namespace vantel::bench {

namespace {

void encode(benchmark::State& state, std::size_t tasks) {
    const WidgetSnapshot snapshot = snapshotWith(tasks);
    for (auto _ : state)
        benchmark::DoNotOptimize(encodeSnapshot(snapshot));
}

void dumpWithNlohmann(benchmark::State& state, std::size_t tasks) {
    const nlohmann::json document = nlohmann::json::parse(documentWith(tasks));
    for (auto _ : state)
        benchmark::DoNotOptimize(document.dump());
}

BENCHMARK_CAPTURE(encode, 14kB, tasksOfTypicalDocument);
BENCHMARK_CAPTURE(dumpWithNlohmann, 14kB, tasksOfTypicalDocument);
BENCHMARK_CAPTURE(encode, 19MB, tasksOfHugeDocument);
BENCHMARK_CAPTURE(dumpWithNlohmann, 19MB, tasksOfHugeDocument);

const bool declared = declare({"encode/14kB", "dumpWithNlohmann/14kB", 0.2}) &&
                      declare({"encode/19MB", "dumpWithNlohmann/19MB", 0.2});

} // namespace

} // namespace vantel::bench
