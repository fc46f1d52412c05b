#include "platform/GroupContainer.h"
#include "tests/fakes/ScopedEnvironment.h"

#include <gtest/gtest.h>

namespace vantel {
namespace {

using namespace std::string_view_literals;
using testing::ScopedEnvironment;
using Value = std::optional<std::string>;

std::optional<FileURL> containerIn(const Value& dataHome, const Value& home) {
    const ScopedEnvironment data("XDG_DATA_HOME", dataHome);
    const ScopedEnvironment user("HOME", home);
    return groupContainer("group.vantel");
}

TEST(GroupContainer, LiesInTheDataHome) {
    EXPECT_EQ(containerIn("/data", "/home/ada"), "/data/group-containers/group.vantel");
    EXPECT_EQ(containerIn("/data/", "/home/ada"), "/data/group-containers/group.vantel");
    EXPECT_EQ(containerIn("/data", std::nullopt), "/data/group-containers/group.vantel");
    EXPECT_EQ(containerIn("/", "/home/ada"), "/group-containers/group.vantel");
}

TEST(GroupContainer, LiesInTheUsersHomeWithoutAnAbsoluteDataHome) {
    for (const Value& dataHome : {Value(), Value(""), Value("data"), Value("./data"), Value("~/data")})
        EXPECT_EQ(containerIn(dataHome, "/home/ada"), "/home/ada/.local/share/group-containers/group.vantel");
}

TEST(GroupContainer, IsAbsentWithoutAnAbsoluteBase) {
    for (const Value& home : {Value(), Value(""), Value("ada"), Value("./ada")}) {
        EXPECT_FALSE(containerIn(std::nullopt, home));
        EXPECT_FALSE(containerIn("data", home));
    }
}

TEST(GroupContainer, IsAbsentForAnIdentifierThatIsNoFileName) {
    const ScopedEnvironment data("XDG_DATA_HOME", "/data");
    for (const std::string_view identifier :
         {""sv, "."sv, ".."sv, "/"sv, "a/b"sv, "../a"sv, "/etc"sv, "a/"sv, "a\0b"sv})
        EXPECT_FALSE(groupContainer(identifier)) << identifier;
    for (const std::string_view identifier : {"a"sv, "..."sv, ".a"sv, "a b"sv, "grüppe"sv})
        EXPECT_EQ(groupContainer(identifier), FileURL("/data/group-containers") / identifier);
}

TEST(GroupContainer, FollowsTheEnvironmentAtOnce) {
    EXPECT_EQ(containerIn("/one", {}), "/one/group-containers/group.vantel");
    EXPECT_EQ(containerIn("/two", {}), "/two/group-containers/group.vantel");
}

} // namespace
} // namespace vantel
