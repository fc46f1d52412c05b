#include "platform/ShortestNumber.h"

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <random>
#include <string>

#include <gtest/gtest.h>

namespace vantel {

namespace {

std::string shortest(double number) {
    std::array<char, longestNumber> buffer{};
    return {buffer.data(), writeShortest(number, buffer.data())};
}

std::string standard(double number) {
    std::array<char, longestNumber> buffer{};
    return {buffer.data(), std::to_chars(buffer.data(), buffer.data() + buffer.size(), number).ptr};
}

TEST(ShortestNumber, WritesWhatPeopleWouldWrite) {
    EXPECT_EQ(shortest(788918400), "788918400");
    EXPECT_EQ(shortest(788918400.5), "788918400.5");
    EXPECT_EQ(shortest(0.94), "0.94");
    EXPECT_EQ(shortest(-0.05), "-0.05");
    EXPECT_EQ(shortest(12.3456), "12.3456");
    EXPECT_EQ(shortest(0), "0");
}

TEST(ShortestNumber, TakesAnExponentWhereThatIsShorter) {
    EXPECT_EQ(shortest(90000), "90000");
    EXPECT_EQ(shortest(100000), "1e+05");
    EXPECT_EQ(shortest(120000), "120000");
    EXPECT_EQ(shortest(0.001), "0.001");
    EXPECT_EQ(shortest(0.0001), "1e-04");
    EXPECT_EQ(shortest(1e21), "1e+21");
}

TEST(ShortestNumber, KeepsDigitsThatFewDecimalsCannotHold) {
    EXPECT_EQ(shortest(0.1 + 0.2), "0.30000000000000004");
    EXPECT_EQ(shortest(12.34567), "12.34567");
    EXPECT_EQ(shortest(std::nextafter(788918400.5, 1e9)), "788918400.5000001");
}

TEST(ShortestNumber, AgreesWithTheStandardLibraryOnDecimals) {
    for (int digits = -2'000'000; digits <= 2'000'000; digits += 7)
        for (const double scale : {1.0, 10.0, 1000.0, 10'000.0, 100'000.0})
            ASSERT_EQ(shortest(digits / scale), standard(digits / scale));
}

TEST(ShortestNumber, AgreesWithTheStandardLibraryOnNumbersOfAnySize) {
    std::mt19937_64 random(2001);
    for (int i = 0; i < 200'000; ++i) {
        const auto number = std::bit_cast<double>(random());
        if (!std::isfinite(number))
            continue;
        ASSERT_EQ(shortest(number), standard(number));
        const double rounded = std::round(std::fmod(number, 1e12) * 1000) / 1000;
        ASSERT_EQ(shortest(rounded), standard(rounded));
    }
}

} // namespace

} // namespace vantel
