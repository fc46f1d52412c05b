#include "tests/torture/program/EachCall.h"

#include "tests/torture/program/Judgement.h"
#include "tests/torture/program/SystemCalls.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <filesystem>

#include <sys/mman.h>
#include <sys/syscall.h>

namespace vantel::torture {

namespace {

constexpr std::array errors = {EINTR, EIO, ENOSPC, EDQUOT, EACCES, EROFS, EMFILE, ENOLCK};

/// What a watched process says of itself.
struct Told {
    Outcome outcome;
    long descriptorsLeft;
    bool areLocksFree;
};

/// Memory that parent and child share, once the parent has asked for it.
Told& told() {
    static auto* const memory = static_cast<Told*>(
        ::mmap(nullptr, sizeof(Told), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
    return *memory;
}

long openDescriptors() {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

using Decide = std::function<Fate(std::size_t, const SystemCall&)>;

Watched watched(const Operation& operation, const Decide& decide) {
    put(operation.before);
    told() = {};
    const long descriptors = openDescriptors();
    const auto body = [&] {
        const Outcome outcome = runContained(operation);
        pauseWatching();
        told() = {outcome, openDescriptors() - descriptors, areLocksFree()};
    };
    return watch(body, decide);
}

Fate pass(std::size_t, const SystemCall&) {
    return {};
}

bool startsProcess(const SystemCall& call) {
    constexpr std::array starting = {SYS_clone, SYS_clone3, SYS_execve, SYS_execveat};
#ifdef SYS_fork
    if (call.number == SYS_fork || call.number == SYS_vfork)
        return true;
#endif
    return std::ranges::find(starting, call.number) != starting.end();
}

/// What an operation does when nothing disturbs it.
struct Clean {
    std::vector<SystemCall> calls;
    Sides sides;
};

Clean runCleanly(const Operation& operation, Report& report) {
    put(operation.before);
    const View before = look();
    const Watched run = watched(operation, pass);
    report.expect(run.status == 0 && told().outcome == Outcome::happened,
                  operation.name + " fails by itself");
    report.expect(std::ranges::none_of(run.calls, startsProcess),
                  operation.name + " starts a process, which would keep its lock");
    return {run.calls, {before, look()}};
}

enum class Lasting { once, sameCall, everything };

const char* words(Lasting lasting) {
    if (lasting == Lasting::once)
        return " once";
    return lasting == Lasting::sameCall ? " from then on" : " for everything from then on";
}

/// Interruptions end some time; whatever else goes on for so many calls never ends, and is killed.
constexpr std::size_t storm = 1000;

struct Fault {
    std::size_t position;
    long call;
    int number;
    Lasting lasting;

    Fate fate(std::size_t at, const SystemCall& called) const {
        if (at > position + storm)
            return number == EINTR ? Fate{} : Fate{Fate::Kind::kill};
        const bool later = at > position && lasting != Lasting::once;
        const bool strikes =
            at == position || (later && (lasting == Lasting::everything || called.number == call));
        return strikes ? Fate{Fate::Kind::fail, number} : Fate{};
    }

    std::string describe(const Operation& operation) const {
        return operation.name + ", " + torture::name(call) + " at " + std::to_string(position) + ": " +
               strerrorname_np(number) + words(lasting);
    }

    bool isForgivenBy(const Operation& operation) const {
        return operation.mayFinishLater && call == SYS_write && lasting == Lasting::sameCall;
    }

    /// Where files cannot be removed, they stay.
    bool forbidsRemoving() const { return call == SYS_unlink || lasting == Lasting::everything; }
};

/// A redo copy stays where the rewrite could not be finished: the next operation does that.
bool mayLeaveCopy(const Operation& operation, const Fault& fault, Outcome outcome) {
    return operation.before.redoCopy || (fault.lasting != Lasting::once && outcome != Outcome::happened);
}

void judgeFiles(const Operation& operation, const Fault& fault, const std::string& what, Report& report) {
    if (fault.forbidsRemoving())
        return;
    const bool mayLeave = mayLeaveCopy(operation, fault, told().outcome);
    for (const std::string& name : fileNames())
        report.expect(!name.ends_with(".tmp") && (mayLeave || !name.ends_with(".redo")),
                      what + ": left " + name);
}

void judge(const Operation& operation, const Clean& clean, const Fault& fault, int status, Report& report) {
    const std::string what = fault.describe(operation);
    report.expect(status == 0, what + ": ended with " + std::to_string(status));
    report.expect(told().outcome != Outcome::wrong, what + ": told what is not so");
    report.expect(told().descriptorsLeft == 0, what + ": left a descriptor");
    report.expect(told().areLocksFree, what + ": left a lock");
    judgeFiles(operation, fault, what, report);
    const bool mayHaveHappened = fault.lasting == Lasting::everything || fault.isForgivenBy(operation);
    judgeOutcome(told().outcome, clean.sides,
                 mayHaveHappened ? FailedMeans::itMayHaveHappened : FailedMeans::nothingHappened, what,
                 report);
    judgeLaterUse(what, report);
}

/// The short form leaves out what a long one has never found to differ from EIO.
bool isInShortForm(int number, Lasting lasting) {
    return lasting == Lasting::once || number == EIO || (number == EINTR && lasting == Lasting::sameCall);
}

template <Form form>
int failOperation(const Operation& operation, Report& report) {
    const Clean clean = runCleanly(operation, report);
    int runs = 0;
    for (std::size_t position = 0; position < clean.calls.size(); ++position)
        for (const int number : errors)
            for (const Lasting lasting : {Lasting::once, Lasting::sameCall, Lasting::everything}) {
                if (form == Form::brief && !isInShortForm(number, lasting))
                    continue;
                const Fault fault{position, clean.calls[position].number, number, lasting};
                const auto decide = [&](std::size_t at, const SystemCall& call) {
                    return fault.fate(at, call);
                };
                judge(operation, clean, fault, watched(operation, decide).status, report);
                ++runs;
            }
    std::cout << operation.name << ": " << clean.calls.size() << " calls, " << runs << " runs" << std::endl;
    return runs;
}

void judgeKill(const Clean& clean, const Watched& run, const std::string& what, Report& report) {
    report.expect(run.status == 128 + SIGKILL, what + ": ended with " + std::to_string(run.status));
    report.expect(areLocksFree(), what + ": left a lock");
    const View found = look();
    report.expect(found == clean.sides.before || found == clean.sides.after,
                  what + ": neither before nor after");
    judgeLaterUse(what, report);
}

/// Before the call, and for a write after its first byte, its half, and all but its last byte.
std::vector<Fate> deathsAt(const SystemCall& call) {
    std::vector<Fate> deaths{{Fate::Kind::kill}};
    if (call.number == SYS_write)
        for (const std::size_t length : {std::size_t{1}, call.length / 2, call.length - 1})
            deaths.push_back({Fate::Kind::tearAndKill, 0, length});
    return deaths;
}

int killOperation(const Operation& operation, Report& report) {
    const Clean clean = runCleanly(operation, report);
    int runs = 0;
    for (std::size_t position = 0; position < clean.calls.size(); ++position)
        for (const Fate& death : deathsAt(clean.calls[position])) {
            const auto decide = [&](std::size_t at, const SystemCall&) {
                return at == position ? death : Fate{};
            };
            const std::string what =
                operation.name + ", killed at " + std::to_string(position) + ", " +
                torture::name(clean.calls[position].number) +
                (death.kind == Fate::Kind::kill ? "" : " after " + std::to_string(death.length));
            judgeKill(clean, watched(operation, decide), what, report);
            ++runs;
        }
    std::cout << operation.name << ": " << clean.calls.size() << " calls, " << runs << " kills" << std::endl;
    return runs;
}

int forEachOperation(int (*run)(const Operation&, Report&), const char* unit) {
    if (const std::string reason = whyNotWatchable(); !reason.empty()) {
        std::cout << "skipped: " << reason << std::endl;
        return 77;
    }
    Report report;
    int runs = 0;
    for (const Operation& operation : allOperations())
        runs += run(operation, report);
    std::cout << runs << ' ' << unit << ", " << report.count() << " wrong" << std::endl;
    return report.status();
}

} // namespace

int failEachCall(Form form) {
    const auto fail = form == Form::brief ? failOperation<Form::brief> : failOperation<Form::full>;
    return forEachOperation(fail, "faults");
}

int killAtEachCall() {
    return forEachOperation(killOperation, "kills");
}

} // namespace vantel::torture
