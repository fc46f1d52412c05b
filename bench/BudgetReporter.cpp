#include "bench/BudgetReporter.h"

#include <cstdio>

namespace vantel::bench {

namespace {

struct Standing {
    double value;
    const char* unit;
};

Standing standing(const Budget& budget, double measured, double reference) {
    if (budget.rule == Budget::Rule::ratio)
        return {measured / reference, "x"};
    return {(measured - reference) / 1e6, "ms"};
}

/// What only computes is measured in processor time, so that a busy machine disturbs less; what waits for a
/// disk or for another process, by the clock.
double nanoseconds(const benchmark::BenchmarkReporter::Run& run) {
    const double inUnits =
        run.run_name.time_type.empty() ? run.GetAdjustedCPUTime() : run.GetAdjustedRealTime();
    return inUnits * 1e9 / benchmark::GetTimeUnitMultiplier(run.time_unit);
}

/// A benchmark's name as budgets give it: without how often and how long it ran, which is its own business.
std::string nameOf(const benchmark::BenchmarkName& name) {
    return name.args.empty() ? name.function_name : name.function_name + "/" + name.args;
}

void print(const Budget& budget, double measured, double reference) {
    const auto [value, unit] = standing(budget, measured, reference);
    std::printf("%-34s %12.1f us %12.1f us %8.2f %-2s %8.2f %-2s %s\n", budget.measured.c_str(),
                measured / 1e3, reference / 1e3, value, unit, budget.allowed, unit,
                value <= budget.allowed ? "" : "OVER");
}

} // namespace

void BudgetReporter::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs)
        if (run.aggregate_name == "median")
            m_nanoseconds[nameOf(run.run_name)] = nanoseconds(run);
    ConsoleReporter::ReportRuns(runs);
}

void BudgetReporter::Finalize() {
    std::printf("\n%-34s %15s %15s %11s %11s\n", "budget", "measured", "reference", "stands at", "allowed");
    for (const Budget& budget : budgets()) {
        const auto measured = m_nanoseconds.find(budget.measured);
        const auto reference = m_nanoseconds.find(budget.reference);
        if (measured != m_nanoseconds.end() && reference != m_nanoseconds.end())
            print(budget, measured->second, reference->second);
    }
}

} // namespace vantel::bench
