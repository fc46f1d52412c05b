#include "platform/IcuTables.h"
#include "platform/LocalizedFormats.h"

#include <fstream>
#include <memory>
#include <optional>
#include <string>

#include <gtest/gtest.h>
#include <unicode/numfmt.h>

namespace vantel {

namespace {

/// The kilobytes in which this process has parts of the library's tables; absent where they lie in the
/// program.
std::optional<long> tablesInMemory() {
    std::ifstream mappings("/proc/self/smaps");
    std::optional<long> kilobytes;
    bool isTables = false;
    for (std::string line; std::getline(mappings, line);) {
        if (line.starts_with("Rss:") && isTables)
            kilobytes = kilobytes.value_or(0) + std::stol(line.substr(4));
        if (line.find('-') < line.find(':') && line.find(' ') < line.find(':'))
            isTables = line.contains("/libicudata.");
    }
    return kilobytes;
}

std::string weekday(const LocalizedFormats& formats) {
    return formats.date(
        {.year = 2025, .month = 11, .day = 14, .hour = 9, .minute = 0, .second = 0, .weekday = 6},
        DateFields::weekdayMonthDay);
}

TEST(IcuTables, WhatMadeAFormatIsGivenBackAndTheFormatGoesOn) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::NumberFormat> format(icu::NumberFormat::createInstance("de", status));
    const auto read = tablesInMemory();
    if (!read)
        GTEST_SKIP() << "the library's tables are part of the program";
    giveBackIcuTables();
    EXPECT_LT(*tablesInMemory(), *read / 2);
    icu::UnicodeString text;
    EXPECT_EQ(format->format(1234.5, text), icu::UnicodeString("1.234,5"));
}

TEST(IcuTables, FormatsThatAreMadeAfterwardsAreNoneTheWorse) {
    const LocalizedFormats english("en_GB.UTF-8");
    EXPECT_EQ(weekday(english), "Fri, 14 Nov");
    EXPECT_EQ(weekday(LocalizedFormats("de_DE.UTF-8")), "Fr., 14. Nov.");
    EXPECT_EQ(weekday(english), "Fri, 14 Nov");
}

} // namespace

} // namespace vantel
