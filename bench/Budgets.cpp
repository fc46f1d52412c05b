#include "bench/Budgets.h"

#include <utility>

namespace vantel::bench {

namespace {

std::vector<Budget>& declared() {
    static std::vector<Budget> budgets;
    return budgets;
}

} // namespace

const std::vector<Budget>& budgets() {
    return declared();
}

bool declare(Budget budget) {
    declared().push_back(std::move(budget));
    return true;
}

} // namespace vantel::bench
