#include "tests/cli/Goldens.h"

#include <string_view>

#include <gtest/gtest.h>

/// `--rebaseline` writes the goldens anew; without it they are only compared with.
int main(int count, char** words) {
    ::testing::InitGoogleTest(&count, words);
    for (int i = 1; i < count; ++i) {
        if (std::string_view(words[i]) == "--rebaseline")
            vantel::testing::goldens().mode = vantel::testing::GoldenMode::rebaseline;
    }
    return RUN_ALL_TESTS();
}
