#include "tests/fakes/ScratchFolder.h"
#include "tests/torture/program/Crowd.h"
#include "tests/torture/program/Disks.h"
#include "tests/torture/program/EachCall.h"
#include "tests/torture/program/HostileDays.h"
#include "tests/torture/program/LimitedFiles.h"
#include "tests/torture/program/PowerCut.h"

#include <iostream>
#include <string>
#include <vector>

/// vantel_torture WHAT [COUNT]: does it, most of it in a container of its own, in memory where there is some.
namespace vantel::torture {
namespace {

int run(const std::string& what, const std::string& count) {
    if (what == "hostile-days")
        return writeHostileDays();
    const testing::ScratchDataHome dataHome(testing::quickFolder());
    if (what == "faults")
        return failEachCall(count == "full" ? Form::full : Form::brief);
    if (what == "kills")
        return killAtEachCall();
    if (what == "random-kills")
        return killAtRandom(std::stoi(count));
    if (what == "disks")
        return useBadDisks();
    if (what == "limits")
        return useLimitedFiles();
    if (what == "load")
        return load(std::stol(count));
    std::cerr
        << "vantel_torture faults [full]|kills|random-kills COUNT|load COUNT|disks|limits|hostile-days\n"
           "vantel_torture use POSITION_FILE ROUNDS|look|quota: in $XDG_DATA_HOME\n";
    return 2;
}

/// The first argument names what to do; those that are missing are empty.
int run(std::vector<std::string> arguments) {
    arguments.resize(3);
    if (arguments[0] == "use")
        return useUntilPowerCut(arguments[1], std::stoi(arguments[2]));
    if (arguments[0] == "look")
        return lookAfterPowerCut();
    if (arguments[0] == "quota")
        return useQuota();
    return run(arguments[0], arguments[1].empty() ? "0" : arguments[1]);
}

} // namespace
} // namespace vantel::torture

int main(int count, char** arguments) {
    return vantel::torture::run({arguments + 1, arguments + count});
}
