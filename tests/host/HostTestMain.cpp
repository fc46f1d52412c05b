#include "tests/host/PictureGoldens.h"

#include <QApplication>
#include <string_view>

#include <gtest/gtest.h>

int main(int count, char** words) {
    ::testing::InitGoogleTest(&count, words);
    for (int i = 1; i < count; ++i)
        if (std::string_view(words[i]) == "--rebaseline")
            vantel::testing::goldenMode() = vantel::testing::GoldenMode::rebaseline;
    const QApplication application(count, words);
    return RUN_ALL_TESTS();
}
