#include "platform/BaseFolders.h"
#include "tests/fakes/ScopedEnvironment.h"

#include <gtest/gtest.h>

namespace vantel {
namespace {

using testing::ScopedEnvironment;
using Value = std::optional<std::string>;
using Folder = std::optional<FileURL>;

struct Row {
    Value chosen;
    Value home;
    Folder data;
    Folder state;
};

TEST(BaseFolders, AreChosenByAnAbsolutePathElseLieInTheHome) {
    const Row rows[] = {
        {"/chosen", "/home/ada", "/chosen", "/chosen"},
        {"/chosen", {}, "/chosen", "/chosen"},
        {{}, "/home/ada", "/home/ada/.local/share", "/home/ada/.local/state"},
        {"", "/home/ada", "/home/ada/.local/share", "/home/ada/.local/state"},
        {"chosen", "/home/ada", "/home/ada/.local/share", "/home/ada/.local/state"},
        {"~/chosen", "/home/ada", "/home/ada/.local/share", "/home/ada/.local/state"},
        {{}, {}, {}, {}},
        {{}, "", {}, {}},
        {"chosen", "ada", {}, {}},
    };
    for (const Row& row : rows) {
        const ScopedEnvironment home("HOME", row.home);
        const ScopedEnvironment data("XDG_DATA_HOME", row.chosen);
        const ScopedEnvironment state("XDG_STATE_HOME", row.chosen);
        EXPECT_EQ(dataHome(), row.data) << row.chosen.value_or("none");
        EXPECT_EQ(stateHome(), row.state) << row.chosen.value_or("none");
    }
}

} // namespace
} // namespace vantel
