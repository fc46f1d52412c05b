#pragma once

#include "tests/torture/program/Operations.h"
#include "tests/torture/program/Report.h"

namespace vantel::torture {

/// What is seen in the container before an operation that nothing disturbs, and after it.
struct Sides {
    View before;
    View after;
};

enum class FailedMeans { nothingHappened, itMayHaveHappened };

/// Reports an operation that said to have happened and has not, or to have failed and changed something.
void judgeOutcome(Outcome outcome, const Sides& sides, FailedMeans failed, const std::string& what,
                  Report& report);

/// Reports what is left of an operation once the container was used again.
void judgeLaterUse(const std::string& what, Report& report);

} // namespace vantel::torture
