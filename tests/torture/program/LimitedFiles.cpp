#include "tests/torture/program/LimitedFiles.h"

#include "tests/torture/program/Judgement.h"

#include <csignal>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vantel::torture {

namespace {

constexpr rlim_t longest = 1024L * 1024;

/// In a process of its own, since a limit can never be raised again.
Outcome runLimited(const Operation& operation, rlim_t length) {
    const pid_t process = ::fork();
    if (process == 0) {
        std::signal(SIGXFSZ, SIG_IGN); // as the programs do
        const rlimit limit{length, length};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        ::_exit(static_cast<int>(runContained(operation)));
    }
    int status = 0;
    ::waitpid(process, &status, 0);
    return WIFEXITED(status) ? static_cast<Outcome>(WEXITSTATUS(status)) : Outcome::wrong;
}

void judge(const Operation& operation, Outcome outcome, const Sides& sides, const std::string& what,
           Report& report) {
    report.expect(outcome == Outcome::failed || outcome == Outcome::happened, what + ": told what is not so");
    report.expect(areLocksFree(), what + ": left a lock");
    judgeOutcome(outcome, sides,
                 operation.mayFinishLater ? FailedMeans::itMayHaveHappened : FailedMeans::nothingHappened,
                 what, report);
    judgeLaterUse(what, report);
}

int limitOperation(const Operation& operation, Report& report) {
    put(operation.before);
    const View before = look();
    put(operation.before);
    report.expect(runContained(operation) == Outcome::happened, operation.name + " fails by itself");
    const Sides sides{before, look()};
    int runs = 0;
    for (rlim_t length = 0; length < longest; length += 1 + length / 64) {
        put(operation.before);
        const Outcome outcome = runLimited(operation, length);
        judge(operation, outcome, sides, operation.name + ", " + std::to_string(length) + " bytes", report);
        ++runs;
        if (outcome == Outcome::happened)
            return runs;
    }
    report.wrong(operation.name + " needs a longer file than any of ours");
    return runs;
}

} // namespace

int useLimitedFiles() {
    Report report;
    int runs = 0;
    for (const Operation& operation : allOperations())
        runs += limitOperation(operation, report);
    std::cout << "files that may not grow beyond some bytes: " << runs << " runs, " << report.count()
              << " wrong" << std::endl;
    return report.status();
}

} // namespace vantel::torture
