#pragma once

#include "bench/Budgets.h"

#include <map>
#include <string>

#include <benchmark/benchmark.h>

namespace vantel::bench {

/// Prints what Google Benchmark prints, and at the end each budget with where it stands.
class BudgetReporter final : public benchmark::ConsoleReporter {
public:
    BudgetReporter()
        : ConsoleReporter(OO_Tabular) {}

    void ReportRuns(const std::vector<Run>& runs) override;
    void Finalize() override;

private:
    std::map<std::string, double> m_nanoseconds; ///< the median of each benchmark
};

} // namespace vantel::bench
