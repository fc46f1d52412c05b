#include "platform/LocalizedFormats.h"
#include "tests/fakes/ScopedEnvironment.h"

#include <atomic>
#include <limits>
#include <set>
#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <simdjson.h>

namespace vantel {
namespace {

constexpr CivilTime friday{
    .year = 2025, .month = 11, .day = 14, .hour = 14, .minute = 5, .second = 0, .weekday = 6};
constexpr CivilTime wednesday{
    .year = 2025, .month = 11, .day = 19, .hour = 0, .minute = 30, .second = 59, .weekday = 4};
constexpr CivilTime thursday{
    .year = 2026, .month = 11, .day = 26, .hour = 12, .minute = 0, .second = 0, .weekday = 5};

std::string date(const std::string& locale, const CivilTime& time, DateFields fields) {
    return LocalizedFormats(locale).date(time, fields);
}

std::string timeLeft(double seconds, const std::string& locale = "en_US") {
    return LocalizedFormats(locale).timeLeft(Seconds(seconds));
}

std::string upperCase(std::string_view text) {
    return LocalizedFormats("en_US").upperCase(text);
}

TEST(LocalizedFormats, EnglishReadsWeekdayFirstAndClocksWithTwelveHours) {
    EXPECT_EQ(date("en_US", friday, DateFields::weekday), "Fri");
    EXPECT_EQ(date("en_US", friday, DateFields::weekdayDay), "Fri 14");
    EXPECT_EQ(date("en_US", wednesday, DateFields::weekdayMonthDay), "Wed, Nov 19");
    EXPECT_EQ(date("en_US", friday, DateFields::hourMinute), "2:05 PM");
    EXPECT_EQ(date("en_US", wednesday, DateFields::hourMinute), "12:30 AM");
    EXPECT_EQ(date("en_US", thursday, DateFields::hourMinute), "12:00 PM");
}

TEST(LocalizedFormats, BritishEnglishReadsTheDayBeforeTheMonthAndClocksWith24Hours) {
    EXPECT_EQ(date("en_GB", friday, DateFields::weekdayDay), "Fri 14");
    EXPECT_EQ(date("en_GB", thursday, DateFields::weekdayMonthDay), "Thu, 26 Nov");
    EXPECT_EQ(date("en_GB", friday, DateFields::hourMinute), "14:05");
    EXPECT_EQ(date("en_GB", wednesday, DateFields::hourMinute), "00:30");
}

TEST(LocalizedFormats, OtherLanguagesFollowTheLocaleData) {
    EXPECT_EQ(date("de_DE", friday, DateFields::weekday), "Fr");
    EXPECT_EQ(date("de_DE", friday, DateFields::weekdayDay), "Fr., 14.");
    EXPECT_EQ(date("de_DE", friday, DateFields::weekdayMonthDay), "Fr., 14. Nov.");
    EXPECT_EQ(date("de_DE", friday, DateFields::hourMinute), "14:05");
    EXPECT_EQ(date("fr_FR", friday, DateFields::weekdayDay), "ven. 14");
    EXPECT_EQ(date("fr_FR", friday, DateFields::weekdayMonthDay), "ven. 14 nov.");
    EXPECT_EQ(date("fr_FR", friday, DateFields::hourMinute), "14:05");
    EXPECT_EQ(date("ja_JP", friday, DateFields::weekdayDay), "14日(金)");
    EXPECT_EQ(date("ja_JP", friday, DateFields::weekdayMonthDay), "11月14日(金)");
    EXPECT_EQ(date("ja_JP", friday, DateFields::hourMinute), "14:05");
    EXPECT_EQ(date("th_TH", friday, DateFields::weekdayDay), "ศ. 14");
    EXPECT_EQ(date("th_TH", friday, DateFields::hourMinute), "14:05");
}

TEST(LocalizedFormats, DigitsAndCalendarAreTheLocales) {
    EXPECT_THAT(date("ar_EG", friday, DateFields::weekdayDay), ::testing::HasSubstr("١٤"));
    EXPECT_THAT(date("ar_EG", friday, DateFields::hourMinute), ::testing::HasSubstr("٢:٠٥"));
    EXPECT_THAT(date("hi_IN", friday, DateFields::weekdayMonthDay), ::testing::HasSubstr("14"));
    EXPECT_THAT(date("hi_IN", friday, DateFields::hourMinute), ::testing::HasSubstr("2:05"));
    EXPECT_THAT(date("fa_IR", friday, DateFields::weekdayMonthDay), ::testing::HasSubstr("۲۳ آبان"));
    EXPECT_THAT(date("fa_IR", friday, DateFields::hourMinute), ::testing::HasSubstr("۱۴:۰۵"));
}

TEST(LocalizedFormats, ThePlainLocaleReadsLikeEnglish) {
    for (const char* locale : {"C", "POSIX", "C.UTF-8", "C.utf8", "en"}) {
        EXPECT_EQ(date(locale, friday, DateFields::weekdayDay), "Fri 14") << locale;
        EXPECT_EQ(date(locale, wednesday, DateFields::weekdayMonthDay), "Wed, Nov 19") << locale;
        EXPECT_EQ(date(locale, friday, DateFields::hourMinute), "2:05 PM") << locale;
        EXPECT_EQ(timeLeft(3900, locale), "1 hr, 5 min") << locale;
    }
}

TEST(LocalizedFormats, ALanguageWithoutDataReadsLikeEnglishWhateverTheProcessSpeaks) {
    const testing::ScopedEnvironment process("LC_ALL", "ja_JP.UTF-8");
    for (const char* locale : {"", "xx_YY", "tlh", "root", "@", "../../x", "not a locale",
                               "a_very-long_name-with_more-parts_than-any"}) {
        EXPECT_EQ(date(locale, friday, DateFields::weekdayDay), "Fri 14") << locale;
        EXPECT_EQ(date(locale, friday, DateFields::hourMinute), "2:05 PM") << locale;
        EXPECT_EQ(timeLeft(1500, locale), "25 min") << locale;
    }
}

TEST(LocalizedFormats, ARegionWithoutDataReadsLikeItsLanguage) {
    EXPECT_EQ(date("de_YY", friday, DateFields::weekdayDay), "Fr., 14.");
    EXPECT_EQ(date("ja", friday, DateFields::weekdayDay), "14日(金)");
}

TEST(LocalizedFormats, NamesMayBeOfEitherStandard) {
    EXPECT_EQ(date("de-AT", friday, DateFields::weekdayDay), "Fr., 14.");
    EXPECT_EQ(date("de_DE@euro", friday, DateFields::weekdayDay), "Fr., 14.");
    EXPECT_EQ(date("sr_RS@latin", friday, DateFields::weekday),
              date("sr-Latn-RS", friday, DateFields::weekday));
    EXPECT_NE(date("sr_RS@latin", friday, DateFields::weekday), date("sr_RS", friday, DateFields::weekday));
}

TEST(LocalizedFormats, TheFieldsOfADateDoNotDependOnTheOrderOfQuestions) {
    const LocalizedFormats formats("en_US");
    EXPECT_EQ(formats.date(friday, DateFields::weekday), "Fri");
    EXPECT_EQ(formats.date(friday, DateFields::hourMinute), "2:05 PM");
    EXPECT_EQ(formats.date(friday, DateFields::weekday), "Fri");
    EXPECT_EQ(formats.date(wednesday, DateFields::weekdayMonthDay), "Wed, Nov 19");
}

TEST(LocalizedFormats, ASpanReadsInItsTwoLargestUnits) {
    EXPECT_EQ(timeLeft(45), "45 sec");
    EXPECT_EQ(timeLeft(1500), "25 min");
    EXPECT_EQ(timeLeft(3900), "1 hr, 5 min");
    EXPECT_EQ(timeLeft(3600), "1 hr");
    EXPECT_EQ(timeLeft(7200), "2 hr");
    EXPECT_EQ(timeLeft(90'000), "25 hr");
    EXPECT_EQ(timeLeft(86'399), "24 hr");
    EXPECT_EQ(timeLeft(86'340), "23 hr, 59 min");
}

TEST(LocalizedFormats, ASpanReadsTheSameHoweverOftenItIsAsked) {
    const LocalizedFormats english("en_US");
    const LocalizedFormats belarusian("be_BY");
    for (int i = 0; i < 10; ++i) {
        EXPECT_EQ(english.timeLeft(Seconds(3900)), "1 hr, 5 min") << i;
        EXPECT_EQ(english.timeLeft(Seconds(3.6e9)), "1,000,000 hr") << i;
        EXPECT_EQ(belarusian.timeLeft(Seconds(3.6e6)), "1 000 гадз") << i;
    }
}

TEST(LocalizedFormats, AMinuteThatHasBegunCountsWhole) {
    EXPECT_EQ(timeLeft(60), "1 min");
    EXPECT_EQ(timeLeft(60.5), "2 min");
    EXPECT_EQ(timeLeft(61), "2 min");
    EXPECT_EQ(timeLeft(1441), "25 min");
    EXPECT_EQ(timeLeft(3541), "1 hr");
    EXPECT_EQ(timeLeft(3599.5), "1 hr");
    EXPECT_EQ(timeLeft(3601), "1 hr, 1 min");
}

TEST(LocalizedFormats, UnderAMinuteTheSecondsCount) {
    EXPECT_EQ(timeLeft(59.5), "1 min");
    EXPECT_EQ(timeLeft(59), "59 sec");
    EXPECT_EQ(timeLeft(58.1), "59 sec");
    EXPECT_EQ(timeLeft(0.001), "1 sec");
}

TEST(LocalizedFormats, NothingIsLeftOfASpanThatIsOver) {
    for (const double seconds : {0.0, -0.0, -0.5, -1.0, -1e300, -std::numeric_limits<double>::infinity(),
                                 std::numeric_limits<double>::quiet_NaN()})
        EXPECT_EQ(timeLeft(seconds), "0 sec") << seconds;
}

TEST(LocalizedFormats, AnHourNeverReadsAsSixtyMinutes) {
    const LocalizedFormats formats("en_US");
    for (int minute = 1; minute <= 180; ++minute)
        for (const double nudge : {-0.5, 0.0, 0.5}) {
            const std::string text = formats.timeLeft(Seconds(60 * minute + nudge));
            EXPECT_THAT(text, ::testing::Not(::testing::HasSubstr("60")));
            EXPECT_THAT(text, ::testing::Not(::testing::HasSubstr(" 0 ")));
        }
}

TEST(LocalizedFormats, SpansEndAtABillionHours) {
    EXPECT_EQ(timeLeft(1e300), "1,000,000,000 hr");
    EXPECT_EQ(timeLeft(std::numeric_limits<double>::infinity()), "1,000,000,000 hr");
    EXPECT_EQ(timeLeft(3600e9 - 30), "1,000,000,000 hr");
}

TEST(LocalizedFormats, SpansFollowTheLocaleData) {
    EXPECT_EQ(timeLeft(3900, "de_DE"), "1 Std., 5 Min.");
    EXPECT_EQ(timeLeft(1500, "fr_FR"), "25 min");
    EXPECT_THAT(timeLeft(1500, "ja_JP"), ::testing::HasSubstr("25"));
    EXPECT_THAT(timeLeft(1500, "ar_EG"), ::testing::HasSubstr("٢٥"));
    EXPECT_THAT(timeLeft(1500, "fa_IR"), ::testing::HasSubstr("۲۵"));
}

TEST(LocalizedFormats, UpperCaseIsUnicodes) {
    EXPECT_EQ(upperCase("Focus"), "FOCUS");
    EXPECT_EQ(upperCase("über"), "ÜBER");
    EXPECT_EQ(upperCase("Straße"), "STRASSE");
    EXPECT_EQ(upperCase("ﬁne"), "FINE");
    EXPECT_EQ(upperCase("контракт"), "КОНТРАКТ");
    EXPECT_EQ(upperCase("ςσ"), "ΣΣ");
    EXPECT_EQ(upperCase("会議 🧪 1"), "会議 🧪 1");
    EXPECT_EQ(upperCase(""), "");
    EXPECT_EQ(upperCase(std::string_view("a\0b", 3)), std::string("A\0B", 3));
    EXPECT_EQ(upperCase(std::string(1'000'000, 'x')), std::string(1'000'000, 'X'));
}

TEST(LocalizedFormats, UpperCaseOfATurkishLocaleKeepsTheDotOffTheI) {
    EXPECT_EQ(LocalizedFormats("tr_TR").upperCase("triage"), "TRIAGE");
}

TEST(LocalizedFormats, TextsWithoutACatalogueAreTheirKeys) {
    EXPECT_EQ(LocalizedFormats("de_DE").translated("Done for today"), "Done for today");
}

constexpr DateFields allFields[] = {DateFields::weekday, DateFields::weekdayDay, DateFields::weekdayMonthDay,
                                    DateFields::hourMinute};

/// Something to read, in UTF-8 and with ordinary spaces only.
void expectReadable(const std::string& text) {
    EXPECT_FALSE(text.empty());
    EXPECT_TRUE(simdjson::validate_utf8(text));
    EXPECT_THAT(text, ::testing::Not(::testing::HasSubstr("\u202F")));
    EXPECT_THAT(text, ::testing::Not(::testing::HasSubstr("\u00A0")));
    EXPECT_THAT(text, ::testing::Not(::testing::HasSubstr("\uFFFD")));
}

class EveryLocale : public ::testing::TestWithParam<const char*> {};

TEST_P(EveryLocale, TellsEveryDayOfTheWeekApart) {
    const LocalizedFormats formats(GetParam());
    std::set<std::string> names;
    for (int day = 1; day <= 7; ++day)
        names.insert(formats.date(
            {.year = 2025, .month = 6, .day = day, .hour = 0, .minute = 0, .second = 0, .weekday = day},
            DateFields::weekday));
    EXPECT_EQ(names.size(), 7U);
}

TEST_P(EveryLocale, TellsEveryDayOfTheYearApart) {
    const LocalizedFormats formats(GetParam());
    std::set<std::string> dates;
    for (int month = 1; month <= 12; ++month)
        for (int day = 1; day <= 28; ++day)
            dates.insert(formats.date({.year = 2025,
                                       .month = month,
                                       .day = day,
                                       .hour = 12,
                                       .minute = 0,
                                       .second = 0,
                                       .weekday = 1},
                                      DateFields::weekdayMonthDay));
    EXPECT_EQ(dates.size(), 12U * 28U);
}

TEST_P(EveryLocale, TellsEveryMinuteOfTheDayApart) {
    const LocalizedFormats formats(GetParam());
    std::set<std::string> times;
    for (int minute = 0; minute < 1440; ++minute)
        times.insert(formats.date({.year = 2025,
                                   .month = 6,
                                   .day = 1,
                                   .hour = minute / 60,
                                   .minute = minute % 60,
                                   .second = 0,
                                   .weekday = 1},
                                  DateFields::hourMinute));
    EXPECT_EQ(times.size(), 1440U);
}

TEST_P(EveryLocale, IsReadable) {
    const LocalizedFormats formats(GetParam());
    for (const DateFields fields : allFields)
        for (int hour = 0; hour < 24; ++hour)
            for (int month = 1; month <= 12; ++month)
                expectReadable(formats.date({.year = 2026,
                                             .month = month,
                                             .day = 28,
                                             .hour = hour,
                                             .minute = 5,
                                             .second = 0,
                                             .weekday = 1},
                                            fields));
    for (const double seconds : {0.0, 1.0, 59.0, 60.0, 120.0, 3600.0, 3660.0, 7320.0, 90'000.0, 1e300})
        expectReadable(formats.timeLeft(Seconds(seconds)));
}

TEST_P(EveryLocale, ReadsYearsOfAnyDistance) {
    const LocalizedFormats formats(GetParam());
    for (const std::int64_t year :
         {-300'000, -5000, -401, -400, -1, 0, 1, 399, 1582, 1969, 9999, 32'768, 300'000})
        for (const DateFields fields : allFields)
            expectReadable(formats.date(
                {.year = year, .month = 2, .day = 28, .hour = 23, .minute = 59, .second = 59, .weekday = 1},
                fields));
}

INSTANTIATE_TEST_SUITE_P(LocalizedFormats, EveryLocale,
                         ::testing::Values("en_US", "en_GB", "de_DE", "fr_FR", "ja_JP", "ar_EG", "fa_IR",
                                           "th_TH", "hi_IN", "C"));

TEST(LocalizedFormats, DaysBeforeTheGregorianReformAreCountedBackwards) {
    for (const std::int64_t year : {1582, 1000, 1, 0, -1, -300'000})
        EXPECT_THAT(
            date("en_US",
                 {.year = year, .month = 2, .day = 14, .hour = 9, .minute = 5, .second = 0, .weekday = 1},
                 DateFields::weekdayMonthDay),
            ::testing::EndsWith(", Feb 14"))
            << year;
}

TEST(LocalizedFormats, ManyThreadsMayAskAtOnce) {
    const LocalizedFormats formats("en_US");
    std::vector<std::jthread> threads;
    std::atomic<int> wrong = 0;
    for (int thread = 0; thread < 4; ++thread)
        threads.emplace_back([&] {
            for (int i = 0; i < 500; ++i) {
                wrong += formats.date(friday, DateFields::weekdayDay) == "Fri 14" ? 0 : 1;
                wrong += formats.date(friday, DateFields::hourMinute) == "2:05 PM" ? 0 : 1;
                wrong += formats.timeLeft(Seconds(3900)) == "1 hr, 5 min" ? 0 : 1;
            }
        });
    threads.clear();
    EXPECT_EQ(wrong, 0);
}

} // namespace
} // namespace vantel
