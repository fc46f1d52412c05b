#include "platform/FormatLocale.h"
#include "tests/fakes/ScopedEnvironment.h"

#include <gtest/gtest.h>

namespace vantel {
namespace {

using testing::ScopedEnvironment;
using Value = std::optional<std::string>;

std::string localeOf(const Value& all, const Value& time, const Value& language) {
    const ScopedEnvironment lcAll("LC_ALL", all);
    const ScopedEnvironment lcTime("LC_TIME", time);
    const ScopedEnvironment lang("LANG", language);
    return currentFormatLocale();
}

TEST(FormatLocale, IsTheFirstThatIsSetAndNotEmpty) {
    EXPECT_EQ(localeOf("de_DE", "fr_FR", "ja_JP"), "de_DE");
    EXPECT_EQ(localeOf(std::nullopt, "fr_FR", "ja_JP"), "fr_FR");
    EXPECT_EQ(localeOf("", "fr_FR", "ja_JP"), "fr_FR");
    EXPECT_EQ(localeOf(std::nullopt, std::nullopt, "ja_JP"), "ja_JP");
    EXPECT_EQ(localeOf("", "", "ja_JP"), "ja_JP");
}

TEST(FormatLocale, IsPlainWhenNothingIsSet) {
    EXPECT_EQ(localeOf(std::nullopt, std::nullopt, std::nullopt), "C");
    EXPECT_EQ(localeOf("", "", ""), "C");
}

TEST(FormatLocale, OtherCategoriesDoNotCount) {
    const ScopedEnvironment messages("LC_MESSAGES", "ja_JP.UTF-8");
    const ScopedEnvironment language("LANGUAGE", "ja");
    EXPECT_EQ(localeOf(std::nullopt, std::nullopt, "de_DE"), "de_DE");
    EXPECT_EQ(localeOf(std::nullopt, std::nullopt, std::nullopt), "C");
}

TEST(FormatLocale, DropsTheEncodingAndKeepsTheModifier) {
    EXPECT_EQ(localeOf("de_DE.UTF-8", {}, {}), "de_DE");
    EXPECT_EQ(localeOf("de_DE.utf8@euro", {}, {}), "de_DE@euro");
    EXPECT_EQ(localeOf("sr_RS@latin", {}, {}), "sr_RS@latin");
    EXPECT_EQ(localeOf("C.UTF-8", {}, {}), "C");
    EXPECT_EQ(localeOf("POSIX", {}, {}), "POSIX");
    EXPECT_EQ(localeOf(".UTF-8", {}, {}), "");
    EXPECT_EQ(localeOf("en", {}, {}), "en");
}

} // namespace
} // namespace vantel
