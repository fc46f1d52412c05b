#include "tests/widgets/WidgetFixture.h"
#include "widgets/WTokens.h"
#include "widgets/WidgetLinks.h"
#include "widgets/nextup/NextUpRules.h"
#include "widgets/nextup/NextUpWidget.h"

#include <gtest/gtest.h>

namespace vantel {
namespace {

using namespace testing;
using Lines = std::vector<std::string>;

const Instant now = at("2026-11-17T09:20");

WidgetEvent meeting(Instant start) {
    WidgetEvent result = event("m", start, start + std::chrono::hours(1));
    result.location = "Room 1";
    result.joinURL = parseUrl("https://meet.example/1");
    result.joinProvider = "Zoom";
    return result;
}

WidgetSnapshot snapshotWith(std::vector<WidgetEvent> events) {
    WidgetSnapshot snapshot = emptySnapshot(now);
    snapshot.events = std::move(events);
    return snapshot;
}

WidgetContent contentOf(std::vector<WidgetEvent> events, const ViewContext& context) {
    return nextUpWidgetView(entry(snapshotWith(std::move(events)), now), context);
}

Lines textsOf(std::vector<WidgetEvent> events, const ViewContext& context) {
    return texts(contentOf(std::move(events), context).content);
}

Lines ids(const EventList& events) {
    Lines found;
    for (const WidgetEvent& each : events)
        found.push_back(each.id);
    return found;
}

TEST(NextUpWidget, WithoutASnapshotItShowsTheSetupStateAndNoLink) {
    const WidgetContent content = nextUpWidgetView({now, nullptr}, medium());
    EXPECT_EQ(texts(content.content).front(), "Halvo");
    EXPECT_EQ(content.widgetURL, std::nullopt);
    EXPECT_EQ(content.background, WTokens::windowBg);
}

TEST(NextUpWidget, AnEventThatHasEndedIsGoneAndARunningOneIsFirst) {
    const WidgetEvent ended = event("ended", now - Seconds(3600), now - Seconds(1));
    const WidgetEvent endsNow = event("ends now", now - Seconds(3600), now);
    const WidgetEvent running = event("running", now - Seconds(600), now + Seconds(1));
    const WidgetEvent ahead = event("ahead", now + Seconds(600), std::nullopt);
    EXPECT_EQ(ids(upcoming(snapshotWith({ahead, ended, endsNow, running}), now)),
              (Lines{"running", "ahead"}));
    EXPECT_EQ(textsOf({ahead, ended, running}, small()), (Lines{"NEXT · 09:10", "Now", "Event running"}));
}

TEST(NextUpWidget, AnEventWithoutAnEndLastsAnHour) {
    EXPECT_EQ(upcoming(snapshotWith({event("a", now - Seconds(59 * 60), std::nullopt)}), now).size(), 1U);
    EXPECT_EQ(upcoming(snapshotWith({event("a", now - Seconds(60 * 60), std::nullopt)}), now).size(), 0U);
}

TEST(NextUpWidget, TheDarkCardShowsFromFiveMinutesBeforeTheStart) {
    struct Case {
        double seconds;
        bool isImminent;
    };
    for (const Case& each : {Case{301, false}, Case{300, true}, Case{299.5, true}, Case{0.001, true},
                             Case{0, false}, Case{-1, false}}) {
        const WidgetContent content = contentOf({meeting(now + Seconds(each.seconds))}, small());
        EXPECT_EQ(content.background, each.isImminent ? WTokens::ink : WTokens::windowBg) << each.seconds;
        EXPECT_EQ(texts(content.content).front() == "STARTING NOW", each.isImminent) << each.seconds;
        EXPECT_EQ(content.widgetURL, WidgetLinks::calendar());
    }
}

TEST(NextUpWidget, TheDarkCardHasItsSizesAndColours) {
    const Element card = contentOf({meeting(now + Seconds(300))}, small()).content;
    EXPECT_EQ(texts(card), (Lines{"STARTING NOW", "Event m", "Room 1", "▸", "Join Zoom"}));
    EXPECT_EQ(textNamed(card, "STARTING NOW").style.color, Color(WTokens::alarmRed));
    const Text title = textNamed(card, "Event m");
    EXPECT_EQ(title.style.font, (Font{22, FontWeight::bold}));
    EXPECT_EQ(title.style.tracking, -0.4);
    EXPECT_EQ(title.style.color, Color(WTokens::paper));
    EXPECT_EQ(title.style.lineLimit, 2);
    EXPECT_EQ(textNamed(card, "Room 1").style.color, Color(WTokens::paper.at(0.55)));
    EXPECT_EQ(all<Capsule>(card).at(0).color, Color(WTokens::paper));
}

TEST(NextUpWidget, TheMediumSizeNeverHasTheDarkCard) {
    const WidgetContent content = contentOf({meeting(now + Seconds(300))}, medium());
    EXPECT_EQ(content.background, WTokens::windowBg);
    EXPECT_EQ(texts(content.content).front(), "09:25");
}

TEST(NextUpWidget, TheEventCardCountsDownToTheStart) {
    const Element card = contentOf({meeting(now + Seconds(2400))}, small()).content;
    EXPECT_EQ(texts(card), (Lines{"NEXT · 10:00", "in", "countdown", "Event m", "Room 1", "▸", "Join Zoom"}));
    EXPECT_EQ(textNamed(card, "in").style.font, (Font{14, FontWeight::semibold}));
    const RelativeTime countdown = all<RelativeTime>(card).at(0);
    EXPECT_EQ(countdown.date, now + Seconds(2400));
    EXPECT_EQ(countdown.style.font, (Font{22, FontWeight::bold}));
    EXPECT_EQ(countdown.style.tracking, -0.4);
    EXPECT_EQ(textNamed(card, "Event m").style.font, (Font{11.5, FontWeight::semibold}));
    EXPECT_EQ(textNamed(card, "Room 1").style.color, Color(WTokens::textSecondary));
    EXPECT_EQ(all<Capsule>(card).at(0).color, Color(WTokens::ink));
}

TEST(NextUpWidget, AMeetingThatStartsRightNowReadsNow) {
    EXPECT_EQ(textsOf({meeting(now)}, small()),
              (Lines{"NEXT · 09:20", "Now", "Event m", "Room 1", "▸", "Join Zoom"}));
}

TEST(NextUpWidget, EventsOfTomorrowOnlyMeanDoneForToday) {
    const WidgetEvent tomorrow = event("t", at("2026-11-18T09:30"), std::nullopt);
    EXPECT_EQ(textsOf({tomorrow}, small()), (Lines{"Done for today", "Tomorrow: Event t", "09:30"}));
    EXPECT_EQ(textsOf({tomorrow}, medium()),
              (Lines{"Done for today", "Tomorrow: Event t · 09:30", "no more meetings today"}));
}

TEST(NextUpWidget, EventsOfLaterDaysAreNamedByTheirDay) {
    const WidgetEvent thursday = event("t", at("2026-11-19T09:30"), std::nullopt);
    EXPECT_EQ(textsOf({thursday}, small())[1], "Thu, Nov 19: Event t");
    EXPECT_EQ(nextDayLabel(event("t", at("2026-11-18T23:59"), std::nullopt), now, berlin(), plainFormats()),
              "Tomorrow");
    EXPECT_EQ(nextDayLabel(event("t", at("2026-11-17T23:59"), std::nullopt), now, berlin(), plainFormats()),
              "Tue, Nov 17");
}

TEST(NextUpWidget, WithoutAnyEventTheEveningNamesNone) {
    EXPECT_EQ(textsOf({}, small()), Lines{"Done for today"});
    EXPECT_EQ(textsOf({}, medium()), (Lines{"Done for today", "no more meetings today"}));
    const Element evening = contentOf({}, small()).content;
    EXPECT_EQ(all<Symbol>(evening).at(0), (Symbol{.name = "moon", .size = 20}));
}

TEST(NextUpWidget, TheMediumSizeShowsThreeRowsAndTheFooterCountsAll) {
    const Lines found = textsOf({event("a", at("2026-11-17T10:00"), at("2026-11-17T16:30")),
                                 event("b", at("2026-11-17T11:00"), std::nullopt),
                                 event("c", at("2026-11-17T12:00"), std::nullopt),
                                 event("d", at("2026-11-17T13:00"), std::nullopt)},
                                medium());
    EXPECT_EQ(found,
              (Lines{"10:00", "Event a", "11:00", "Event b", "12:00", "Event c", "then free from 16:30"}));
    EXPECT_EQ(textsOf({event("a", at("2026-11-17T10:00"), std::nullopt),
                       event("b", at("2026-11-17T11:00"), std::nullopt),
                       event("c", at("2026-11-17T12:00"), std::nullopt),
                       event("d", at("2026-11-17T22:00"), std::nullopt)},
                      medium())
                  .back(),
              "then free from 23:00");
}

TEST(NextUpWidget, OnlyTheNextRowHasEmphasisSubtitleAndCapsule) {
    WidgetEvent first = meeting(at("2026-11-17T10:00"));
    first.linkedOpenTaskCount = 3;
    WidgetEvent second = meeting(at("2026-11-17T12:00"));
    second.title = "second";
    const Element view = contentOf({first, second}, medium()).content;
    EXPECT_EQ(texts(view), (Lines{"10:00", "Event m", "Room 1 · 3 open tasks linked", "▸", "Join", "12:00",
                                  "second", "Zoom", "then free from 13:00"}));
    EXPECT_EQ(textNamed(view, "Event m").style.font, (Font{11.5, FontWeight::semibold}));
    EXPECT_EQ(textNamed(view, "second").style.font, Font{11.5});
    EXPECT_EQ(textNamed(view, "second").style.color, Color(PrimaryColor{0.85}));
    EXPECT_EQ(textNamed(view, "10:00").style.font, (Font{10, FontWeight::regular, FontDesign::monospaced}));
    EXPECT_EQ(textNamed(view, "Zoom").style.font, Font{9.5});
    const Element time = flattened(view).at(2);
    EXPECT_EQ(time.frame.width, 36);
}

TEST(NextUpWidget, EventsThatStartTogetherKeepTheSnapshotsOrder) {
    const Instant start = at("2026-11-17T10:00");
    EXPECT_EQ(ids(upcoming(snapshotWith({event("late", start + Seconds(1), std::nullopt),
                                         event("x", start, std::nullopt), event("a", start, std::nullopt)}),
                           now)),
              (Lines{"x", "a", "late"}));
}

TEST(NextUpWidget, TheSubtitleJoinsPlaceAndLinkedTasks) {
    const auto of = [](std::optional<std::string> location, std::int64_t tasks) {
        WidgetEvent result = event("e", now, std::nullopt);
        result.location = std::move(location);
        result.linkedOpenTaskCount = tasks;
        return subtitle(result, plainFormats());
    };
    EXPECT_EQ(of(std::nullopt, 0), std::nullopt);
    EXPECT_EQ(of(std::nullopt, -1), std::nullopt);
    EXPECT_EQ(of(std::nullopt, 1), "1 open tasks linked");
    EXPECT_EQ(of("Room", 0), "Room");
    EXPECT_EQ(of("Room", 2), "Room · 2 open tasks linked");
    EXPECT_EQ(of("", 0), "");
    EXPECT_EQ(of("", 1), " · 1 open tasks linked");
}

TEST(NextUpWidget, AStaleSnapshotAsksForARefreshAndStillShowsItsRows) {
    WidgetSnapshot snapshot = snapshotWith({event("a", at("2026-11-17T10:00"), std::nullopt)});
    snapshot.generatedAt = now - std::chrono::hours(48);
    EXPECT_EQ(texts(nextUpWidgetView(entry(snapshot, now), medium()).content),
              (Lines{"10:00", "Event a", "⚠ open Halvo to refresh"}));
    snapshot.generatedAt = now - std::chrono::hours(48) + Seconds(1);
    EXPECT_EQ(texts(nextUpWidgetView(entry(snapshot, now), medium()).content).back(), "then free from 11:00");
}

} // namespace
} // namespace vantel
