#include "platform/LocalizedFormats.h"
#include "tests/fakes/FakeCalendar.h"
#include "tests/widgets/WidgetFixture.h"
#include "widgets/JoinCapsule.h"
#include "widgets/MonoFooter.h"
#include "widgets/MonoLabel.h"
#include "widgets/WTokens.h"
#include "widgets/WidgetFormat.h"
#include "widgets/WidgetLinks.h"

#include <gtest/gtest.h>

namespace vantel {
namespace {

using namespace testing;

TEST(WidgetLinks, TheFixedLinksAreWhatTheCompanionListensTo) {
    EXPECT_EQ(WidgetLinks::focus().text, "vantel://focus");
    EXPECT_EQ(WidgetLinks::triage().text, "vantel://triage");
    EXPECT_EQ(WidgetLinks::calendar().text, "vantel://calendar");
    EXPECT_EQ(WidgetLinks::people().text, "vantel://people");
}

TEST(WidgetLinks, ATaskLinkCarriesTheIdPercentEncoded) {
    struct Row {
        const char* id;
        const char* link;
    };
    for (const Row& row :
         {Row{"t-1", "vantel://todo?id=t-1"}, Row{"", "vantel://todo?id="},
          Row{"a b", "vantel://todo?id=a%20b"}, Row{"ü1", "vantel://todo?id=%C3%BC1"},
          Row{"a&b=c#d", "vantel://todo?id=a%26b%3Dc%23d"}, Row{"50%", "vantel://todo?id=50%25"},
          Row{"a/b?c", "vantel://todo?id=a/b?c"}, Row{"\r\n", "vantel://todo?id=%0D%0A"}})
        EXPECT_EQ(WidgetLinks::todo(row.id).text, row.link);
}

TEST(WidgetLinks, AJoinLinkCarriesTheWholeMeetingLinkInOneItem) {
    const Url meeting = parseUrl("https://meet.example/j/1?pwd=a%20b&x=1#frag").value();
    EXPECT_EQ(WidgetLinks::join(meeting).text,
              "vantel://join?url=https://meet.example/j/1?pwd%3Da%2520b%26x%3D1%23frag");
}

TEST(WidgetFormat, RelativeDaysCountsCivilDays) {
    struct Row {
        const char* from;
        const char* to;
        const char* text;
    };
    for (const Row& row : {
             Row{"2026-11-17T23:59", "2026-11-18T00:01", "in 1d"},
             Row{"2026-11-17T09:00", "2026-11-17T23:59", "today"},
             Row{"2026-11-17T23:59", "2026-11-17T00:00", "today"},
             Row{"2026-11-17T00:01", "2026-11-16T23:59", "-1d"},
             Row{"2026-11-17T09:00", "2026-11-20T08:00", "in 3d"},
             Row{"2026-11-17T09:00", "2026-11-15T10:00", "-2d"},
             Row{"2026-10-24T12:00", "2026-10-26T11:00", "in 2d"},
             Row{"2026-03-28T12:00", "2026-03-30T00:00", "in 2d"},
             Row{"2026-01-01T00:00", "2027-01-01T00:00", "in 365d"},
         })
        EXPECT_EQ(WidgetFormat::relativeDays(at(row.from), at(row.to), berlin(), plainFormats()), row.text)
            << row.from;
}

TEST(WidgetFormat, RelativeDaysThatTheCalendarCannotTellAreToday) {
    EXPECT_EQ(WidgetFormat::relativeDays(at("2026-11-17"), at("2026-11-19"), CalendarWithoutArithmetic(),
                                         plainFormats()),
              "today");
    EXPECT_EQ(
        WidgetFormat::relativeDays(at("2026-11-17"), instantFromReference(1e300), berlin(), plainFormats()),
        "today");
}

TEST(WidgetFormat, DatesReadAsTheLocaleWritesThem) {
    const LocalizedFormats american("en_US");
    const LocalizedFormats british("en_GB");
    const Instant date = at("2026-11-20T14:05");
    EXPECT_EQ(WidgetFormat::shortDay(date, berlin(), american), "Fri 20");
    EXPECT_EQ(WidgetFormat::time(date, berlin(), american), "2:05 PM");
    EXPECT_EQ(WidgetFormat::weekday(date, berlin(), american), "Fri");
    EXPECT_EQ(WidgetFormat::weekdayMonthDay(date, berlin(), american), "Fri, Nov 20");
    EXPECT_EQ(WidgetFormat::time(date, berlin(), british), "14:05");
}

TEST(WTokens, HaveTheirLightAndDarkValues) {
    struct Row {
        TokenColor token;
        const char* name;
        std::uint32_t light;
        std::uint32_t dark;
    };
    for (const Row& row : {Row{WTokens::windowBg, "windowBg", 0xF5F4F1, 0x1C1C1E},
                           Row{WTokens::priHighFill, "priHighFill", 0xE84D42, 0xFF6A5C},
                           Row{WTokens::priHighText, "priHighText", 0xD23B2E, 0xFF6A5C},
                           Row{WTokens::priMedFill, "priMedFill", 0xC88374, 0xD9A091},
                           Row{WTokens::ink, "ink", 0x1B1A17, 0x1B1A17},
                           Row{WTokens::alarmRed, "alarmRed", 0xFF6A5C, 0xFF6A5C},
                           Row{WTokens::paper, "paper", 0xFAFAF8, 0xFAFAF8}}) {
        EXPECT_EQ(row.token.name, row.name);
        EXPECT_EQ(std::get<DynamicColor>(row.token.value), (DynamicColor{row.light, row.dark})) << row.name;
    }
}

TEST(WTokens, TheQuietOnesArePrimaryAtAnOpacity) {
    EXPECT_EQ(std::get<PrimaryColor>(WTokens::textSecondary.value).opacity, 0.6);
    EXPECT_EQ(std::get<PrimaryColor>(WTokens::textTertiary.value).opacity, 0.3);
    EXPECT_EQ(std::get<PrimaryColor>(WTokens::hairline.value).opacity, 0.1);
}

TEST(WTokens, InkAlarmRedAndPaperLookTheSameInLightAndDark) {
    const ResolvedColor primary{0, 0, 0};
    for (const TokenColor& token : {WTokens::ink, WTokens::alarmRed, WTokens::paper})
        EXPECT_EQ(resolve(Color(token), Appearance::aqua(), primary),
                  resolve(Color(token), Appearance::darkAqua(), primary))
            << token.name;
}

TEST(WTokens, HighContrastDarkUsesTheDarkValueAndAStrangerTheLightOne) {
    const ResolvedColor primary{0, 0, 0};
    const Color color = WTokens::windowBg;
    EXPECT_EQ(resolve(color, Appearance::highContrastDarkAqua(), primary),
              resolve(color, Appearance::darkAqua(), primary));
    EXPECT_EQ(resolve(color, Appearance{"Sepia"}, primary), resolve(color, Appearance::aqua(), primary));
    EXPECT_NE(resolve(color, Appearance::darkAqua(), primary), resolve(color, Appearance::aqua(), primary));
}

TEST(MonoLabel, IsSmallBoldMonospacedCapitals) {
    const Text text = std::get<Text>(monoLabel("Group today", PrimaryColor{0.42}, plainFormats()).kind);
    EXPECT_EQ(text.text, "GROUP TODAY");
    EXPECT_EQ(text.style.font, (Font{9.5, FontWeight::bold, FontDesign::monospaced}));
    EXPECT_EQ(text.style.kerning, 0.5);
    EXPECT_EQ(text.style.color, Color(PrimaryColor{0.42}));
}

TEST(MonoLabel, UpperCaseIsUnicodes) {
    const LocalizedFormats formats("de_DE");
    EXPECT_EQ(std::get<Text>(monoLabel("Größe für é", PrimaryColor{}, formats).kind).text, "GRÖSSE FÜR É");
}

TEST(MonoFooter, StandsUnderAHairline) {
    const Column column = std::get<Column>(monoFooter("left").kind);
    ASSERT_EQ(column.children.size(), 2U);
    const Rule rule = std::get<Rule>(column.children[0].kind);
    EXPECT_EQ(rule.thickness, 1);
    EXPECT_EQ(rule.axis, Axis::horizontal);
    EXPECT_EQ(rule.color, Color(WTokens::hairline));
    EXPECT_EQ(column.children[0].padding, Padding{.bottom = 7});
    const Text text = textNamed(monoFooter("left"), "left");
    EXPECT_EQ(text.style.font, (Font{9.5, FontWeight::regular, FontDesign::monospaced}));
    EXPECT_EQ(text.style.color, Color(PrimaryColor{0.45}));
    EXPECT_EQ(text.style.lineLimit, 1);
}

TEST(MonoFooter, ASecondTextStandsBehindASpacerOfFourPoints) {
    EXPECT_TRUE(all<Spacer>(monoFooter("left")).empty());
    const Element footer = monoFooter("left", "right");
    EXPECT_EQ(texts(footer), (std::vector<std::string>{"left", "right"}));
    ASSERT_EQ(all<Spacer>(footer).size(), 1U);
    EXPECT_EQ(all<Spacer>(footer)[0].minLength, 4);
}

TEST(JoinCapsule, NamesItsProviderWhenItHasOne) {
    const Url url = parseUrl("https://meet.example/1").value();
    EXPECT_EQ(texts(element(JoinCapsule{url, "Zoom", false, false}, plainFormats())),
              (std::vector<std::string>{"▸", "Join Zoom"}));
    EXPECT_EQ(texts(element(JoinCapsule{url, std::nullopt, false, false}, plainFormats())),
              (std::vector<std::string>{"▸", "Join"}));
    EXPECT_EQ(texts(element(JoinCapsule{url, "100 %s", false, false}, plainFormats()))[1], "Join 100 %s");
}

TEST(JoinCapsule, SizesPaddingAndColoursFollowItsForm) {
    const Url url = parseUrl("https://meet.example/1").value();
    struct Row {
        bool compact;
        bool inverted;
        double glyph;
        double label;
        Padding padding;
        TokenColor text;
        TokenColor fill;
    };
    for (const Row& row :
         {Row{false, false, 10, 10.5, Padding::symmetric(12, 5), WTokens::paper, WTokens::ink},
          Row{true, false, 9, 10, Padding::symmetric(11, 4), WTokens::paper, WTokens::ink},
          Row{false, true, 10, 10.5, Padding::symmetric(12, 5), WTokens::ink, WTokens::paper},
          Row{true, true, 9, 10, Padding::symmetric(11, 4), WTokens::ink, WTokens::paper}}) {
        const Element capsule =
            element(JoinCapsule{url, std::nullopt, row.compact, row.inverted}, plainFormats());
        EXPECT_EQ(all<Link>(capsule).at(0).url, WidgetLinks::join(url));
        EXPECT_EQ(all<Capsule>(capsule).at(0).color, Color(row.fill));
        EXPECT_EQ(all<Capsule>(capsule).at(0).content->padding, row.padding);
        EXPECT_EQ(textNamed(capsule, "▸").style.font, Font{row.glyph});
        EXPECT_EQ(textNamed(capsule, "Join").style.font, (Font{row.label, FontWeight::semibold}));
        EXPECT_EQ(textNamed(capsule, "Join").style.color, Color(row.text));
    }
}

} // namespace
} // namespace vantel
