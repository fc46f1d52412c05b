#pragma once

#include <string>
#include <vector>

namespace vantel::bench {

/// What one benchmark may cost, measured by another one of the same run.
struct Budget {
    enum class Rule {
        ratio,            ///< so many times the reference
        extraMilliseconds ///< so much more than the reference
    };

    std::string measured; ///< the benchmarks' names with their arguments: "overview/1000"
    std::string reference;
    double allowed;
    Rule rule = Rule::ratio;
};

/// All budgets, in the order in which they were declared.
const std::vector<Budget>& budgets();

/// Declares a budget. Benchmarks do so beside their registration, before main begins.
bool declare(Budget budget);

} // namespace vantel::bench
