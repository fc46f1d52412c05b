#include "hosting/ViewJson.h"

#include <limits>

#include <gtest/gtest.h>

namespace vantel {
namespace {

constexpr TokenColor windowBg{"windowBg", DynamicColor{0xFFFFFF, 0x000000}};
constexpr TokenColor ink{"ink", DynamicColor{0x111111, 0x111111}};
constexpr TokenColor hairline{"hairline", PrimaryColor{0.1}};

WidgetView viewOf(Element content) {
    return {.kind = "VantelFocusWidget",
            .family = WidgetFamily::systemSmall,
            .date = instantFromReference(816595500),
            .content = {std::move(content), windowBg}};
}

/// The JSON of an element alone.
std::string json(const Element& element) {
    const std::string before = R"({"kind":"VantelFocusWidget","family":"systemSmall","date":816595500,)"
                               R"("background":"windowBg","content":)";
    const std::string whole = viewJson(viewOf(element)).value();
    EXPECT_EQ(whole.substr(0, before.size()), before);
    return whole.substr(before.size(), whole.size() - before.size() - 1);
}

Element plain(std::string text) {
    return {Text{std::move(text), {.font = {11}}}};
}

TEST(ViewJson, AViewNamesItsWidgetItsDateAndWhatAClickOpens) {
    WidgetView view = viewOf({Spacer{}});
    view.family = WidgetFamily::systemMedium;
    view.date = instantFromReference(0.5);
    view.content.widgetURL = Url{"vantel://focus"};
    EXPECT_EQ(
        viewJson(view).value(),
        R"({"kind":"VantelFocusWidget","family":"systemMedium","date":0.5,"widgetURL":"vantel://focus",)"
        R"("background":"windowBg","content":{"type":"spacer"}})");
}

TEST(ViewJson, TheLinkOfAViewIsLeftOutWhenThereIsNone) {
    EXPECT_EQ(
        viewJson(viewOf({Spacer{}})).value(),
        R"({"kind":"VantelFocusWidget","family":"systemSmall","date":816595500,"background":"windowBg",)"
        R"("content":{"type":"spacer"}})");
}

TEST(ViewJson, ATextWithDefaultsIsItsTextAndSize) {
    EXPECT_EQ(json(plain("Hello")), R"({"type":"text","text":"Hello","font":{"size":11}})");
}

TEST(ViewJson, ATextTellsEverythingThatDiffersFromTheDefaults) {
    const TextStyle style{.font = {9.5, FontWeight::bold, FontDesign::monospaced},
                          .tracking = -0.4,
                          .kerning = 0.5,
                          .color = PrimaryColor{0.42},
                          .lineLimit = 2,
                          .minimumScaleFactor = 0.7,
                          .invalidatable = true};
    EXPECT_EQ(json({Text{"FOCUS", style}}),
              R"({"type":"text","text":"FOCUS","font":{"size":9.5,"weight":"bold","design":"monospaced"},)"
              R"("tracking":-0.4,"kerning":0.5,"color":{"primary":0.42},"lineLimit":2,)"
              R"("minimumScaleFactor":0.7,"invalidatable":true})");
}

TEST(ViewJson, WeightsHaveTheirNames) {
    const auto weighted = [](FontWeight weight) { return json({Text{"x", {.font = {11, weight}}}}); };
    EXPECT_EQ(weighted(FontWeight::regular), R"({"type":"text","text":"x","font":{"size":11}})");
    EXPECT_EQ(weighted(FontWeight::medium),
              R"({"type":"text","text":"x","font":{"size":11,"weight":"medium"}})");
    EXPECT_EQ(weighted(FontWeight::semibold),
              R"({"type":"text","text":"x","font":{"size":11,"weight":"semibold"}})");
}

TEST(ViewJson, ARelativeTimeHasADateInPlaceOfAText) {
    EXPECT_EQ(json({RelativeTime{instantFromReference(816598800), {.font = {22}, .lineLimit = 1}}}),
              R"({"type":"relativeTime","date":816598800,"font":{"size":22},"lineLimit":1})");
}

TEST(ViewJson, ASymbolHasItsName) {
    EXPECT_EQ(json({Symbol{.name = "person.2"}}), R"({"type":"symbol","name":"person.2"})");
    EXPECT_EQ(
        json({Symbol{.name = "circle",
                     .size = 12,
                     .color = PrimaryColor{0.35},
                     .rendering = SymbolRendering::hierarchical}}),
        R"({"type":"symbol","name":"circle","size":12,"color":{"primary":0.35},"rendering":"hierarchical"})");
}

TEST(ViewJson, ARowHasItsChildrenInReadingOrder) {
    EXPECT_EQ(
        json({Row{.children = {plain("a"), {Spacer{}}}}}),
        R"({"type":"row","children":[{"type":"text","text":"a","font":{"size":11}},{"type":"spacer"}]})");
    EXPECT_EQ(json({Row{.children = {}, .alignment = VerticalAlignment::firstTextBaseline, .spacing = 5}}),
              R"({"type":"row","alignment":"firstTextBaseline","spacing":5,"children":[]})");
    EXPECT_EQ(json({Row{.children = {}, .alignment = VerticalAlignment::top, .spacing = 0}}),
              R"({"type":"row","alignment":"top","spacing":0,"children":[]})");
    EXPECT_EQ(json({Row{.children = {}, .alignment = VerticalAlignment::bottom}}),
              R"({"type":"row","alignment":"bottom","children":[]})");
}

TEST(ViewJson, AColumnLeavesOutItsCentre) {
    EXPECT_EQ(json({Column{}}), R"({"type":"column","children":[]})");
    EXPECT_EQ(json({Column{.children = {}, .alignment = HorizontalAlignment::leading, .spacing = 6}}),
              R"({"type":"column","alignment":"leading","spacing":6,"children":[]})");
    EXPECT_EQ(json({Column{.children = {}, .alignment = HorizontalAlignment::trailing}}),
              R"({"type":"column","alignment":"trailing","children":[]})");
}

TEST(ViewJson, AStackHasNoSpacing) {
    EXPECT_EQ(json({Stack{}}), R"({"type":"stack","children":[]})");
    EXPECT_EQ(json({Stack{.children = {}, .alignment = StackAlignment::topLeading}}),
              R"({"type":"stack","alignment":"topLeading","children":[]})");
    EXPECT_EQ(json({Stack{.children = {{Spacer{}}}, .alignment = StackAlignment::leading}}),
              R"({"type":"stack","alignment":"leading","children":[{"type":"spacer"}]})");
}

TEST(ViewJson, ASpacerMayHaveALeastLength) {
    EXPECT_EQ(json({Spacer{.minLength = 4}}), R"({"type":"spacer","minLength":4})");
    EXPECT_EQ(json({Spacer{.minLength = 0}}), R"({"type":"spacer","minLength":0})");
}

TEST(ViewJson, ARuleSaysAlongWhichAxisAndHowThick) {
    EXPECT_EQ(json({Rule{.color = hairline}}),
              R"({"type":"rule","axis":"horizontal","thickness":1,"color":{"token":"hairline"}})");
    EXPECT_EQ(json({Rule{.axis = Axis::vertical, .thickness = 0.5}}),
              R"({"type":"rule","axis":"vertical","thickness":0.5})");
}

TEST(ViewJson, ARoundedRectangleHasItsMeasures) {
    EXPECT_EQ(json({RoundedRectangle{
                  .width = 22, .height = 28, .cornerRadius = 4, .color = PrimaryColor{0.1}, .rotation = -4}}),
              R"({"type":"roundedRectangle","width":22,"height":28,"cornerRadius":4,"color":{"primary":0.1},)"
              R"("rotation":-4})");
    EXPECT_EQ(json({RoundedRectangle{.width = 2.5, .height = 13}}),
              R"({"type":"roundedRectangle","width":2.5,"height":13})");
}

TEST(ViewJson, ACapsuleHasItsContent) {
    EXPECT_EQ(json({Capsule{ink, Element{Spacer{}}}}),
              R"({"type":"capsule","color":{"token":"ink"},"content":{"type":"spacer"}})");
}

TEST(ViewJson, ALinkHasItsLabel) {
    EXPECT_EQ(
        json({Link{Url{"vantel://todo?id=t-1"}, plain("x")}}),
        R"({"type":"link","url":"vantel://todo?id=t-1","label":{"type":"text","text":"x","font":{"size":11}}})");
}

TEST(ViewJson, AButtonHasItsIntentWithTheParametersInTheirOrder) {
    const IntentCall call{"CompleteTodoIntent", {{"todoID", "t-1"}, {"accountID", "acct"}}};
    EXPECT_EQ(json({Button{call, Element{Symbol{.name = "circle"}}}}),
              R"({"type":"button","intent":{"name":"CompleteTodoIntent","todoID":"t-1","accountID":"acct"},)"
              R"("label":{"type":"symbol","name":"circle"}})");
}

TEST(ViewJson, ColorsAreTokensOrThePrimaryColor) {
    const auto colored = [](const Color& color) { return json({Symbol{.name = "flag", .color = color}}); };
    EXPECT_EQ(colored(PrimaryColor{}), R"({"type":"symbol","name":"flag"})");
    EXPECT_EQ(colored(PrimaryColor{0.5}), R"({"type":"symbol","name":"flag","color":{"primary":0.5}})");
    EXPECT_EQ(colored(PrimaryColor{0}), R"({"type":"symbol","name":"flag","color":{"primary":0}})");
    EXPECT_EQ(colored(ink), R"({"type":"symbol","name":"flag","color":{"token":"ink"}})");
    EXPECT_EQ(colored(ink.at(0.55)),
              R"({"type":"symbol","name":"flag","color":{"token":"ink","opacity":0.55}})");
}

TEST(ViewJson, PaddingIsANumberOrItsSides) {
    const auto padded = [](Padding padding) { return json({.kind = Spacer{}, .padding = padding}); };
    EXPECT_EQ(padded({}), R"({"type":"spacer"})");
    EXPECT_EQ(padded(Padding::all(8)), R"({"type":"spacer","padding":8})");
    EXPECT_EQ(padded(Padding::symmetric(12, 5)),
              R"({"type":"spacer","padding":{"vertical":5,"horizontal":12}})");
    EXPECT_EQ(padded(Padding::symmetric(0, 7)), R"({"type":"spacer","padding":{"vertical":7}})");
    EXPECT_EQ(padded({.top = 6}), R"({"type":"spacer","padding":{"top":6}})");
    EXPECT_EQ(padded({.bottom = 7, .leading = 4, .trailing = 14}),
              R"({"type":"spacer","padding":{"bottom":7,"leading":4,"trailing":14}})");
    EXPECT_EQ(padded({.top = 1, .bottom = 2, .leading = 3, .trailing = 3}),
              R"({"type":"spacer","padding":{"top":1,"bottom":2,"horizontal":3}})");
}

TEST(ViewJson, AFrameTellsWhatItImposes) {
    const auto framed = [](Frame frame) { return json({.kind = Spacer{}, .frame = frame}); };
    EXPECT_EQ(framed({}), R"({"type":"spacer"})");
    EXPECT_EQ(framed({.width = 36, .alignment = StackAlignment::leading}),
              R"({"type":"spacer","frame":{"width":36,"alignment":"leading"}})");
    EXPECT_EQ(framed({.height = 22}), R"({"type":"spacer","frame":{"height":22}})");
    EXPECT_EQ(framed({.minWidth = 88}), R"({"type":"spacer","frame":{"minWidth":88}})");
    EXPECT_EQ(framed({.alignment = StackAlignment::topLeading, .fill = FrameFill::both}),
              R"({"type":"spacer","frame":{"alignment":"topLeading","fill":true}})");
}

TEST(ViewJson, AnyElementMayHaveAnAccessibilityLabel) {
    EXPECT_EQ(json({.kind = Symbol{.name = "circle"}, .accessibilityLabel = "Complete"}),
              R"({"type":"symbol","name":"circle","accessibilityLabel":"Complete"})");
}

TEST(ViewJson, TextsAreEscapedAsJsonDemandsAndNotOtherwise) {
    EXPECT_EQ(json(plain("a\"b\\c\n/é\u202E")),
              "{\"type\":\"text\",\"text\":\"a\\\"b\\\\c\\n/é\u202E\",\"font\":{\"size\":11}}");
}

TEST(ViewJson, WhatHasNoJsonFormFails) {
    EXPECT_FALSE(viewJson(viewOf(plain("\xFF"))));
    WidgetView timeless = viewOf(plain("x"));
    timeless.date = instantFromReference(std::numeric_limits<double>::infinity());
    EXPECT_FALSE(viewJson(timeless));
    EXPECT_FALSE(viewJson(viewOf(
        {RelativeTime{instantFromReference(std::numeric_limits<double>::quiet_NaN()), {.font = {11}}}})));
}

} // namespace
} // namespace vantel
