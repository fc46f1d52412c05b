#include "host/app/ToolkitWords.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace vantel::testing {

namespace {

std::vector<std::string> wordsOf(ToolkitWords& words) {
    return {words.words(), words.words() + words.count()};
}

TEST(ToolkitWords, TellTheToolkitWhatToDrawOn) {
    ToolkitWords words("vantel-widgets", "xcb");
    EXPECT_EQ(wordsOf(words), (std::vector<std::string>{"vantel-widgets", "-platform", "xcb"}));
}

TEST(ToolkitWords, TellNothingWhereTheUserHasToldTheToolkit) {
    ToolkitWords words("vantel-widgets", "");
    EXPECT_EQ(wordsOf(words), std::vector<std::string>{"vantel-widgets"});
}

TEST(ToolkitWords, EndLikeACommandLine) {
    ToolkitWords words("vantel-widgets", "xcb");
    EXPECT_EQ(words.words()[words.count()], nullptr);
}

} // namespace

} // namespace vantel::testing
