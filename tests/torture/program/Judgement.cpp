#include "tests/torture/program/Judgement.h"

namespace vantel::torture {

void judgeOutcome(Outcome outcome, const Sides& sides, FailedMeans failed, const std::string& what,
                  Report& report) {
    const View found = look();
    if (outcome == Outcome::happened) {
        report.expect(found == sides.after, what + ": said to have happened, and has not");
        return;
    }
    const bool mayHaveHappened = failed == FailedMeans::itMayHaveHappened;
    report.expect(found == sides.before || (mayHaveHappened && found == sides.after),
                  what + ": said to have failed, and changed something");
}

void judgeLaterUse(const std::string& what, Report& report) {
    for (const std::string& name : leftAfterUse())
        report.wrong(what + ": a later use left " + name);
}

} // namespace vantel::torture
