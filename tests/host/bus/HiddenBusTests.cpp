#include "host/bus/HiddenBus.h"
#include "tests/fakes/ScopedEnvironment.h"

#include <optional>
#include <string>

#include <gtest/gtest.h>

namespace vantel {
namespace {

using namespace testing;

constexpr const char* variable = "DBUS_SESSION_BUS_ADDRESS";

TEST(HiddenBus, LeavesTheEnvironmentAsItWas) {
    for (const std::optional<std::string>& address :
         {std::optional<std::string>("unix:path=/nowhere"), std::optional<std::string>(""),
          std::optional<std::string>()}) {
        const ScopedEnvironment environment(variable, address);
        {
            const HiddenBus hidden;
            EXPECT_EQ(qgetenv(variable), "disabled:");
        }
        EXPECT_EQ(qEnvironmentVariableIsSet(variable), address.has_value());
        EXPECT_EQ(qgetenv(variable).toStdString(), address.value_or(""));
    }
}

} // namespace
} // namespace vantel
