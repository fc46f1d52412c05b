#include "tests/fakes/ScratchFolder.h"
#include "tests/torture/program/Crowd.h"
#include "tests/torture/program/Disks.h"
#include "tests/torture/program/EachCall.h"
#include "tests/torture/program/HostileDays.h"

#include <iostream>
#include <string>

/// vantel_torture WHAT [COUNT]: does it in a container of its own, in memory where there is some.
namespace vantel::torture {
namespace {

std::filesystem::path quickFolder() {
    const std::filesystem::path memory = "/dev/shm";
    return std::filesystem::is_directory(memory) ? memory : std::filesystem::temp_directory_path();
}

int run(const std::string& what, const std::string& count) {
    if (what == "hostile-days")
        return writeHostileDays();
    const testing::ScratchDataHome dataHome(quickFolder());
    if (what == "faults")
        return failEachCall(count == "full" ? Form::full : Form::brief);
    if (what == "kills")
        return killAtEachCall();
    if (what == "random-kills")
        return killAtRandom(std::stoi(count));
    if (what == "disks")
        return useBadDisks();
    if (what == "load")
        return load(std::stol(count));
    std::cerr << "vantel_torture faults [full]|kills|random-kills COUNT|load COUNT|disks|hostile-days\n";
    return 2;
}

} // namespace
} // namespace vantel::torture

int main(int count, char** arguments) {
    return vantel::torture::run(count > 1 ? arguments[1] : "", count > 2 ? arguments[2] : "0");
}
