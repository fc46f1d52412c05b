#include <QApplication>

#include <gtest/gtest.h>

int main(int count, char** words) {
    ::testing::InitGoogleTest(&count, words);
    const QApplication application(count, words);
    return RUN_ALL_TESTS();
}
