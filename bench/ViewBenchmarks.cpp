#include "bench/Budgets.h"
#include "bench/SampleDocuments.h"
#include "platform/LocalizedFormats.h"
#include "widgets/SnapshotProvider.h"
#include "widgets/VantelWidgetsBundle.h"

#include <benchmark/benchmark.h>

namespace vantel::bench {

namespace {

std::shared_ptr<const WidgetSnapshot> sharedSnapshot(const benchmark::State& state) {
    return std::make_shared<const WidgetSnapshot>(snapshotWith(static_cast<std::size_t>(state.range())));
}

/// A view whose formatters are warm, as in a host.
void view(benchmark::State& state, const char* kind, WidgetFamily family) {
    static const LocalizedFormats formats("en_US");
    const TimelineEntry entry = VantelWidgetsBundle::entry(kind, {now(), sharedSnapshot(state)});
    const ViewContext context{family, calendar(), formats};
    benchmark::DoNotOptimize(entry.content(context));
    for (auto _ : state)
        benchmark::DoNotOptimize(entry.content(context));
}

void timeline(benchmark::State& state) {
    const auto snapshot = sharedSnapshot(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(plannedTimeline(snapshot, now(), calendar()));
}

void sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(10)->Arg(1000)->Arg(100'000);
}

BENCHMARK_CAPTURE(view, focusSmall, "VantelFocusWidget", WidgetFamily::systemSmall)->Apply(sizes);
BENCHMARK_CAPTURE(view, focusMedium, "VantelFocusWidget", WidgetFamily::systemMedium)->Apply(sizes);
BENCHMARK_CAPTURE(view, nextUpSmall, "VantelNextUpWidget", WidgetFamily::systemSmall)->Apply(sizes);
BENCHMARK_CAPTURE(view, nextUpMedium, "VantelNextUpWidget", WidgetFamily::systemMedium)->Apply(sizes);
BENCHMARK_CAPTURE(view, triageSmall, "VantelTriageWidget", WidgetFamily::systemSmall)->Apply(sizes);
BENCHMARK_CAPTURE(view, groupTodayMedium, "VantelGroupTodayWidget", WidgetFamily::systemMedium)->Apply(sizes);
BENCHMARK(timeline)->Apply(sizes);

bool declareViews() {
    for (const char* name : {"view/focusSmall", "view/focusMedium", "view/nextUpSmall", "view/nextUpMedium",
                             "view/triageSmall", "view/groupTodayMedium", "timeline"})
        declare({std::string(name) + "/100000", "onePass/100000", 8});
    return true;
}

const bool declared = declareViews();

} // namespace

} // namespace vantel::bench
