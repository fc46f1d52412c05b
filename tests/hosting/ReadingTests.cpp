#include "hosting/Reading.h"
#include "tests/hosting/Cards.h"

#include <gmock/gmock.h>

namespace vantel {
namespace {

using namespace testing;
using ::testing::IsEmpty;

std::string reading(const Element& element) {
    const PlainFormats formats;
    return readingText(element, formats, instantFromReference(1000));
}

TEST(Reading, TheTextsAreReadDepthFirst) {
    EXPECT_EQ(reading(row({text("a"), column({text("b"), text("c")}), text("d")})), "a b c d");
}

TEST(Reading, ATimeThatIsLeftIsCountedFromNow) {
    const Element time = {RelativeTime{instantFromReference(1040), {.font = {11}}}};
    EXPECT_EQ(reading(row({text("in"), time})), "in 40 s");
}

TEST(Reading, AnAccessibilityLabelStandsForEverythingInsideItsElement) {
    Element labelled = row({text("a"), text("b")});
    labelled.accessibilityLabel = "A and B";
    EXPECT_EQ(reading(row({labelled, text("c")})), "A and B c");
}

TEST(Reading, WhatHasNoTextIsSilent) {
    const Element silent = row({{Symbol{.name = "circle"}}, spacer(), rule(), text(""), text("x")});
    EXPECT_EQ(reading(silent), "x");
    EXPECT_EQ(reading({RoundedRectangle{.width = 1, .height = 1}}), "");
}

TEST(Reading, LabelsAndContentsAreInsideTheirElements) {
    const Element content = text("x");
    const Element button = {Button{{"Intent", {}}, content}};
    const Element stack = {Stack{.children = {content, content}}};
    const Element capsule = {Capsule{cardColor, content}};
    for (const Element& holder : {link("vantel://x", content), button, capsule, row({content})}) {
        ASSERT_EQ(children(holder).size(), 1U);
        EXPECT_EQ(*children(holder).front(), content);
    }
    EXPECT_EQ(children(stack).size(), 2U);
    EXPECT_THAT(children(content), IsEmpty());
}

} // namespace
} // namespace vantel
