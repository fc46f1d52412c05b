#include "tests/cli/Goldens.h"

#include "tests/cli/Program.h"
#include "tests/fakes/ReadFile.h"

#include <fstream>

#include <gtest/gtest.h>

namespace vantel::testing {

Goldens& goldens() {
    static Goldens instance;
    return instance;
}

void expectGolden(const std::string& name, const std::string& actual) {
    const std::filesystem::path file = dataFile("golden/" + name);
    if (goldens().mode == GoldenMode::rebaseline) {
        std::ofstream(file, std::ios::binary) << actual;
        return;
    }
    ASSERT_TRUE(std::filesystem::exists(file))
        << "There is no golden " << name << "; --rebaseline writes it.";
    EXPECT_EQ(readFile(file).value(), actual) << "The golden " << name << " differs.";
}

} // namespace vantel::testing
