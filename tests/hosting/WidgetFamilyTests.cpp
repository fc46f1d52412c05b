#include "hosting/WidgetFamily.h"

#include <gtest/gtest.h>

namespace vantel {
namespace {

TEST(WidgetFamily, EachHasANameAndAShortName) {
    EXPECT_EQ(name(WidgetFamily::systemSmall), "systemSmall");
    EXPECT_EQ(name(WidgetFamily::systemMedium), "systemMedium");
    EXPECT_EQ(name(WidgetFamily::systemLarge), "systemLarge");
    EXPECT_EQ(shortName(WidgetFamily::systemSmall), "small");
    EXPECT_EQ(shortName(WidgetFamily::systemMedium), "medium");
    EXPECT_EQ(shortName(WidgetFamily::systemLarge), "large");
}

TEST(WidgetFamily, EitherNameIsRead) {
    for (const auto family :
         {WidgetFamily::systemSmall, WidgetFamily::systemMedium, WidgetFamily::systemLarge}) {
        EXPECT_EQ(parseWidgetFamily(name(family)), family);
        EXPECT_EQ(parseWidgetFamily(shortName(family)), family);
    }
}

TEST(WidgetFamily, NothingElseIsRead) {
    for (const char* text :
         {"", "Small", "SMALL", "systemsmall", "small ", " small", "smal", "systemExtraLarge"})
        EXPECT_FALSE(parseWidgetFamily(text)) << text;
}

} // namespace
} // namespace vantel
