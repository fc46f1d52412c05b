#include "host/app/Options.h"

#include <array>
#include <vector>

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

TEST(Options, ThatSayHowToDrawNeedAPicture) {
    const std::vector<std::vector<const char*>> refused = {
        {"vantel-widgets", "--snapshot", "day.json"},  {"vantel-widgets", "--placeholder"},
        {"vantel-widgets", "gallery", "--at", "0"},    {"vantel-widgets", "gallery", "--scale", "2"},
        {"vantel-widgets", "gallery", "--output", ""}, {"vantel-widgets", "render", "focus", "small"}};
    for (const auto& words : refused) {
        const auto options = parseOptions(static_cast<int>(words.size()), words.data());
        ASSERT_FALSE(options.has_value()) << words[1];
        EXPECT_EQ(options.error().status, 2) << words[1];
    }
    const std::array drawn{"vantel-widgets", "gallery", "--output", "a.png", "--scale", "2"};
    EXPECT_EQ(parseOptions(static_cast<int>(drawn.size()), drawn.data())->task, Task::renderGallery);
    const std::array shown{"vantel-widgets", "gallery"};
    EXPECT_EQ(parseOptions(2, shown.data())->task, Task::showGallery);
}

} // namespace

} // namespace vantel
