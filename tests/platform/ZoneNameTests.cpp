#include "platform/ZoneName.h"
#include "tests/fakes/ScopedEnvironment.h"

#include <filesystem>
#include <optional>

#include <gtest/gtest.h>

namespace vantel {
namespace {

using testing::ScopedEnvironment;

std::string nameUnder(const std::optional<std::string>& variable) {
    const ScopedEnvironment zone("TZ", variable);
    return currentZoneName();
}

TEST(ZoneName, IsTheVariablesName) {
    EXPECT_EQ(nameUnder("Europe/Berlin"), "Europe/Berlin");
    EXPECT_EQ(nameUnder("UTC"), "UTC");
    EXPECT_EQ(nameUnder("Etc/GMT+5"), "Etc/GMT+5");
    EXPECT_EQ(nameUnder("America/Argentina/Buenos_Aires"), "America/Argentina/Buenos_Aires");
}

TEST(ZoneName, DropsTheLeadingColon) {
    EXPECT_EQ(nameUnder(":Europe/Berlin"), "Europe/Berlin");
    EXPECT_EQ(nameUnder(":/usr/share/zoneinfo/Europe/Berlin"), "/usr/share/zoneinfo/Europe/Berlin");
}

TEST(ZoneName, AnEmptyVariableIsUniversalTime) {
    EXPECT_EQ(nameUnder(""), "UTC");
    EXPECT_EQ(nameUnder(":"), "UTC");
}

TEST(ZoneName, MayBeTheAbsolutePathOfAZoneFile) {
    EXPECT_EQ(nameUnder("/usr/share/zoneinfo/Asia/Tokyo"), "/usr/share/zoneinfo/Asia/Tokyo");
    EXPECT_EQ(nameUnder("/etc/passwd"), "libc:localtime");
    EXPECT_EQ(nameUnder("/nowhere"), "libc:localtime");
}

TEST(ZoneName, RulesAndWhatNobodyUnderstandsAreLeftToTheCLibrary) {
    for (const char* variable :
         {"CET-1CEST,M3.5.0,M10.5.0/3", "UTC+2", "<+0330>-3:30", "Europe/Atlantis", "europe/berlin ",
          "Europe", "../../../etc/passwd", "::Europe/Berlin", " ", "\xFF"})
        EXPECT_EQ(nameUnder(variable), "libc:localtime") << variable;
}

TEST(ZoneName, WithoutTheVariableItIsTheSystemsZone) {
    const std::string name = nameUnder(std::nullopt);
    std::error_code error;
    const auto setting = std::filesystem::read_symlink("/etc/localtime", error);
    if (setting.string().find("/zoneinfo/") == std::string::npos)
        EXPECT_EQ(name, "/etc/localtime");
    else
        EXPECT_TRUE(setting.string().ends_with("/zoneinfo/" + name)) << name;
}

} // namespace
} // namespace vantel
