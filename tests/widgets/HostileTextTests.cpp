#include "core/SnapshotDocument.h"
#include "hosting/Reading.h"
#include "hosting/ViewJson.h"
#include "hosting/ViewText.h"
#include "platform/DisplayWidth.h"
#include "tests/fakes/HostileTexts.h"
#include "tests/widgets/WidgetFixture.h"
#include "widgets/VantelWidgetsBundle.h"

#include <gtest/gtest.h>

namespace vantel {
namespace {

using namespace testing;

const Instant noon = at("2026-11-17T12:00");

/// Every text of it, identifiers too, is the given one.
WidgetSnapshot snapshotOf(const std::string& text) {
    WidgetSnapshot snapshot = emptySnapshot(noon);
    snapshot.accountID = text;
    for (const int hours : {-30, -2, 3, 30})
        snapshot.tasks.push_back({.id = text,
                                  .summary = text,
                                  .deadline = noon + Seconds(hours * 3600),
                                  .priorityRank = 0,
                                  .priorityScore = 0.5});
    for (const int hours : {1, 3})
        snapshot.events.push_back({.id = text,
                                   .title = text,
                                   .start = noon + Seconds(hours * 3600),
                                   .location = text,
                                   .joinURL = parseUrl("https://x.org/" + text),
                                   .joinProvider = text,
                                   .linkedOpenTaskCount = 2});
    snapshot.allDayChips = {{text}, {text}};
    for (int kind = 0; kind < 4; ++kind)
        snapshot.horizon.push_back({.id = text,
                                    .day = noon,
                                    .label = text,
                                    .subject = text,
                                    .kind = static_cast<WidgetHorizonItem::Kind>(kind)});
    return snapshot;
}

template <typename Judge>
void forEachView(const WidgetSnapshot& snapshot, Judge judge) {
    for (const StaticConfiguration& widget : VantelWidgetsBundle::body().widgets)
        for (const WidgetFamily family : widget.supportedFamilies) {
            const auto view =
                renderedView(widget, VantelWidgetsBundle::entry(widget.kind, entry(snapshot, noon)),
                             {family, berlin(), plainFormats()});
            ASSERT_TRUE(view) << widget.kind;
            judge(*view);
        }
}

void expectOneWidth(const std::string& card) {
    const std::string_view top = std::string_view(card).substr(0, card.find('\n'));
    const std::size_t end = card.rfind("\u256F"); // the last corner
    for (std::size_t begin = 0; begin < end;) {
        const std::size_t length = card.find('\n', begin) - begin;
        ASSERT_EQ(displayWidth(card.substr(begin, length)), displayWidth(top));
        begin += length + 1;
    }
}

void expectOnlyOurLinks(const WidgetView& view) {
    for (const Link& link : all<Link>(view.content.content)) {
        EXPECT_TRUE(link.url.text.starts_with("vantel://")) << link.url.text;
        EXPECT_EQ(parseUrl(link.url.text), link.url);
    }
}

void judge(const WidgetView& view) {
    const std::string card = viewText(view, {.title = "Widget", .formats = plainFormats()});
    EXPECT_EQ(firstThatATerminalObeys(card), std::nullopt);
    expectOneWidth(card);
    expectOnlyOurLinks(view);
    EXPECT_TRUE(viewJson(view));
    EXPECT_FALSE(readingText(view.content.content, plainFormats(), noon).empty());
}

void expectIntentsFor(const WidgetView& view, const std::string& todoID) {
    for (const Button& button : all<Button>(view.content.content))
        EXPECT_EQ(button.intent.parameter("todoID"), todoID);
}

TEST(HostileTexts, GiveViewsOfOneWidthInWhichNothingReachesTheTerminal) {
    ASSERT_GT(hostileTexts().size(), 300U);
    for (const HostileText& hostile : hostileTexts()) {
        SCOPED_TRACE(hostile.attempt + ": " + hostile.text.substr(0, 60));
        forEachView(snapshotOf(hostile.text), [&](const WidgetView& view) {
            judge(view);
            expectIntentsFor(view, hostile.text);
        });
    }
}

TEST(HostileTexts, OfFourMegabytesGiveViewsLikeAnyOthers) {
    for (const HostileText& hostile : hugeTexts()) {
        SCOPED_TRACE(hostile.attempt.substr(0, 60));
        WidgetSnapshot snapshot = snapshotOf("short");
        snapshot.tasks.front().summary = hostile.text;
        snapshot.events.front().title = hostile.text;
        snapshot.horizon.front().subject = hostile.text;
        forEachView(snapshot, judge);
    }
}

TEST(HostileTexts, SurviveADocument) {
    for (const HostileText& hostile : hostileTexts()) {
        const WidgetSnapshot snapshot = snapshotOf(hostile.text);
        EXPECT_EQ(decodeSnapshot(encodeSnapshot(snapshot).value()), snapshot) << hostile.attempt;
    }
}

} // namespace
} // namespace vantel
