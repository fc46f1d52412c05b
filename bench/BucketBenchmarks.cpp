#include "bench/Budgets.h"
#include "bench/SampleDocuments.h"
#include "core/WidgetBuckets.h"

#include <benchmark/benchmark.h>

namespace vantel::bench {

namespace {

constexpr std::size_t shownRows = 3;

/// One pass over the tasks reading deadline and score.
void onePass(benchmark::State& state) {
    const WidgetSnapshot snapshot = snapshotWith(static_cast<std::size_t>(state.range()));
    for (auto _ : state) {
        double sum = 0;
        for (const WidgetTask& task : snapshot.tasks)
            sum += task.priorityScore + (task.deadline ? secondsSinceReference(*task.deadline) : 0);
        benchmark::DoNotOptimize(sum);
    }
}

template <typename Rule>
void measure(benchmark::State& state, Rule rule) {
    const WidgetSnapshot snapshot = snapshotWith(static_cast<std::size_t>(state.range()));
    for (auto _ : state)
        benchmark::DoNotOptimize(rule(snapshot.tasks));
}

void overview(benchmark::State& state) {
    measure(state,
            [](const auto& tasks) { return WidgetBuckets::overview(tasks, now(), calendar(), shownRows); });
}

void dueCount(benchmark::State& state) {
    measure(state, [](const auto& tasks) { return WidgetBuckets::dueCount(tasks, now(), calendar()); });
}

void nextDue(benchmark::State& state) {
    measure(state, [](const auto& tasks) { return WidgetBuckets::nextDue(tasks, now(), calendar()); });
}

void overdue(benchmark::State& state) {
    measure(state, [](const auto& tasks) { return WidgetBuckets::overdue(tasks, now(), calendar()); });
}

void displayOrder(benchmark::State& state) {
    measure(state, [](const auto& tasks) { return WidgetBuckets::displayOrder(tasks); });
}

void sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(10)->Arg(1000)->Arg(100'000);
}

BENCHMARK(onePass)->Apply(sizes);
BENCHMARK(overview)->Apply(sizes);
BENCHMARK(dueCount)->Apply(sizes);
BENCHMARK(nextDue)->Apply(sizes);
BENCHMARK(overdue)->Apply(sizes);
BENCHMARK(displayOrder)->Apply(sizes);

const bool declared = declare({"overview/100000", "onePass/100000", 8}) &&
                      declare({"dueCount/100000", "onePass/100000", 8}) &&
                      declare({"nextDue/100000", "onePass/100000", 8});

} // namespace

} // namespace vantel::bench
