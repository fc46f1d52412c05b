#include "tests/host/PictureGoldens.h"

#include <QApplication>
#include <cstdlib>
#include <string_view>

#include <gtest/gtest.h>

/// Windows of unit tests exist in memory only, unless somebody wants to see them.
int main(int count, char** words) {
    ::setenv("QT_QPA_PLATFORM", "offscreen", 0);
    ::testing::InitGoogleTest(&count, words);
    for (int i = 1; i < count; ++i)
        if (std::string_view(words[i]) == "--rebaseline")
            vantel::testing::goldenMode() = vantel::testing::GoldenMode::rebaseline;
    const QApplication application(count, words);
    return RUN_ALL_TESTS();
}
