#include "hosting/StaticConfiguration.h"
#include "platform/FatalError.h"
#include "platform/SystemCalendar.h"
#include "tests/fakes/FakeFormats.h"

#include <gtest/gtest.h>

namespace vantel {
namespace {

using namespace testing;

constexpr TokenColor background{"windowBg", DynamicColor{0xFFFFFF, 0x000000}};

struct NumberEntry {
    Instant date;
    int number;
};

class NumberProvider final : public TimelineProvider<NumberEntry> {
public:
    NumberEntry placeholder(const TimelineProviderContext& context) const override {
        return {context.clock.now(), 1};
    }

    NumberEntry getSnapshot(const TimelineProviderContext& context) const override {
        return {context.clock.now(), context.isPreview ? 2 : 3};
    }

    Timeline<NumberEntry> getTimeline(const TimelineProviderContext& context) const override {
        const Instant now = context.clock.now();
        return {{{now, 4}, {now + Seconds(60), 5}}, {now + Seconds(3600)}};
    }
};

WidgetContent numberView(const NumberEntry& entry, const ViewContext& context) {
    if (entry.number == 5)
        fatalError("The number overflows.");
    const std::string text = std::to_string(entry.number) + " " + std::string(shortName(context.family));
    return {{Text{text, {.font = {11}}}}, background};
}

class StaticConfigurationTest : public ::testing::Test {
protected:
    std::expected<WidgetView, std::string> rendered(const TimelineEntry& entry) const {
        return renderedView(configuration, entry, {WidgetFamily::systemMedium, calendar, formats});
    }

    std::string textOf(const TimelineEntry& entry) const {
        const auto view = rendered(entry);
        return view ? std::get<Text>(view->content.content.kind).text : view.error();
    }

    SystemCalendar calendar{cctz::utc_time_zone()};
    PlainFormats formats;
    FixedClock clock{instantFromReference(100)};
    TimelineProviderContext context{.clock = clock, .calendar = calendar};
    StaticConfiguration configuration =
        makeStaticConfiguration<NumberEntry>("Number", std::make_shared<const NumberProvider>(), numberView);
};

TEST_F(StaticConfigurationTest, EntriesOfAnyTypeAreDrawnByTheFunctionThatKnowsThem) {
    EXPECT_EQ(textOf(configuration.placeholder(context)), "1 medium");
    EXPECT_EQ(textOf(configuration.getSnapshot(context)), "3 medium");
}

TEST_F(StaticConfigurationTest, TheProviderLearnsWhetherItIsForAPreview) {
    context.isPreview = true;
    EXPECT_EQ(textOf(configuration.getSnapshot(context)), "2 medium");
}

TEST_F(StaticConfigurationTest, ATimelineKeepsItsDatesAndItsPolicy) {
    const Timeline<TimelineEntry> timeline = configuration.getTimeline(context);
    ASSERT_EQ(timeline.entries.size(), 2U);
    EXPECT_EQ(timeline.entries[0].date, instantFromReference(100));
    EXPECT_EQ(timeline.entries[1].date, instantFromReference(160));
    EXPECT_EQ(timeline.policy.after, instantFromReference(3700));
}

TEST_F(StaticConfigurationTest, AViewSaysOfWhichWidgetAndMomentItIs) {
    const auto view = rendered(configuration.placeholder(context));
    ASSERT_TRUE(view);
    EXPECT_EQ(view->kind, "Number");
    EXPECT_EQ(view->family, WidgetFamily::systemMedium);
    EXPECT_EQ(view->date, instantFromReference(100));
    EXPECT_EQ(view->content.background, background);
}

TEST_F(StaticConfigurationTest, AFatalErrorInsideAViewIsContainedAndTheOthersGoOn) {
    const Timeline<TimelineEntry> timeline = configuration.getTimeline(context);
    const auto broken = rendered(timeline.entries[1]);
    ASSERT_FALSE(broken);
    EXPECT_EQ(broken.error(), "The number overflows.");
    EXPECT_EQ(textOf(timeline.entries[0]), "4 medium");
}

TEST_F(StaticConfigurationTest, OnlyDeclaredFamiliesAreSupported) {
    EXPECT_FALSE(configuration.supports(WidgetFamily::systemSmall));
    configuration.supportedFamilies = {WidgetFamily::systemSmall, WidgetFamily::systemMedium};
    EXPECT_TRUE(configuration.supports(WidgetFamily::systemSmall));
    EXPECT_TRUE(configuration.supports(WidgetFamily::systemMedium));
    EXPECT_FALSE(configuration.supports(WidgetFamily::systemLarge));
}

TEST_F(StaticConfigurationTest, AnEntryOutlivesTheConfigurationAndTheProvider) {
    const TimelineEntry entry = configuration.placeholder(context);
    configuration = {};
    EXPECT_EQ(textOf(entry), "1 medium");
}

} // namespace
} // namespace vantel
