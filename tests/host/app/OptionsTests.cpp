#include "host/app/Options.h"

#include <array>

#include <gtest/gtest.h>

namespace vantel {

namespace {

std::expected<Options, NothingToDo> parse(const char* option, const char* value) {
    const std::array words{"vantel-widgets", option, value};
    return parseOptions(static_cast<int>(words.size()), words.data());
}

TEST(Options, LeaveTheBackEndToTheSession) {
    const std::array words{"vantel-widgets"};
    EXPECT_EQ(parseOptions(1, words.data())->backEnd, WantedBackEnd::automatic);
    EXPECT_EQ(parse("--backend", "auto")->backEnd, WantedBackEnd::automatic);
}

TEST(Options, TakeABackEndThatIsAskedFor) {
    EXPECT_EQ(parse("--backend", "x11")->backEnd, WantedBackEnd::x11);
    EXPECT_EQ(parse("--backend", "wayland")->backEnd, WantedBackEnd::wayland);
    EXPECT_EQ(parse("--backend", "wayland")->task, Task::run);
}

TEST(Options, RefuseABackEndThatThereIsNot) {
    for (const char* value : {"xcb", "Wayland", ""}) {
        const auto options = parse("--backend", value);
        ASSERT_FALSE(options.has_value()) << value;
        EXPECT_EQ(options.error().status, 2) << value;
    }
}

} // namespace

} // namespace vantel
