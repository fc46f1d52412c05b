#include "bench/BudgetReporter.h"

#include <string>

/// Runs the benchmarks in turns, several times each, and takes medians. Arguments of Google Benchmark come
/// last and so win over these.
int main(int argc, char** argv) {
    std::vector<std::string> arguments = {argv[0], "--benchmark_enable_random_interleaving=true",
                                          "--benchmark_repetitions=15", "--benchmark_min_time=0.03",
                                          "--benchmark_report_aggregates_only=true"};
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    std::vector<char*> pointers;
    for (std::string& argument : arguments)
        pointers.push_back(argument.data());
    int count = static_cast<int>(pointers.size());
    benchmark::Initialize(&count, pointers.data());
    if (benchmark::ReportUnrecognizedArguments(count, pointers.data()))
        return 2;
    vantel::bench::BudgetReporter reporter;
    return benchmark::RunSpecifiedBenchmarks(&reporter) == 0 ? 1 : 0;
}
