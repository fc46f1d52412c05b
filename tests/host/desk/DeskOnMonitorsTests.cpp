#include "tests/host/desk/DeskFixture.h"

#include <gmock/gmock.h>

namespace vantel::testing {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

struct DeskOnMonitorsTest : DeskTest {};

bool anyOverlap(const std::vector<QRect>& cards) {
    for (std::size_t i = 0; i < cards.size(); ++i)
        for (std::size_t j = i + 1; j < cards.size(); ++j)
            if (cards[i].intersects(cards[j]))
                return true;
    return false;
}

TEST_F(DeskOnMonitorsTest, AWidgetWaitsForItsMonitorAndReturnsWithIt) {
    Placement placement = widgetA();
    placement.monitor = external.identity;
    screens.set({laptop, external});
    startWith(placement);
    const QRect before = cardOf(placement.id);
    EXPECT_EQ(before, QRect(3732, 52, 170, 170));

    screens.set({laptop});
    EXPECT_THAT(cards(), IsEmpty());
    screens.set({laptop, external});
    EXPECT_EQ(cardOf(placement.id), before);
    EXPECT_THAT(desk->placements(), ElementsAre(placement));
    const PlacedWidgets one{{"A", small}};
    EXPECT_THAT(announced, ElementsAre(one, PlacedWidgets{}, one));
}

/// A monitor that says nothing of itself.
Monitor nameless(const char* name, const QRect& geometry) {
    return {{"", "", "", name}, geometry, geometry, nullptr};
}

const QRect builtIn(0, 0, 1366, 768);
const QRect beside(1366, 0, 1920, 1080);

TEST_F(DeskOnMonitorsTest, WidgetsOfANamelessMonitorComeAndGoWithDocking) {
    const Monitor own = nameless("A-1", builtIn);
    const Monitor docked = nameless("A-2", beside);
    screens.set({own, docked});
    Placement onDocked = widgetA();
    onDocked.monitor = docked.identity;
    onDocked.frame = frameOf(docked);
    startWith(onDocked);
    struct Step {
        const char* title;
        std::vector<Monitor> connected;
        std::vector<QRect> cards;
    };
    const QRect there(3092, 52, 170, 170);
    const QRect alone(1172, 52, 170, 170);
    const Step steps[] = {
        {"docked", {own, docked}, {there}},
        {"undocked: it waits", {own}, {}},
        {"docked at another connector", {own, nameless("A-3", beside)}, {there}},
        {"and with another resolution: nobody can know", {own, nameless("A-3", {1366, 0, 800, 600})}, {}},
        {"back where it was", {own, docked}, {there}},
        {"the dock takes over as the only one", {nameless("B-1", builtIn)}, {alone}},
        {"which others were seen beside", {nameless("B-1", builtIn), docked}, {there}},
        {"and undocked again", {nameless("B-1", builtIn)}, {}},
    };
    for (const Step& step : steps) {
        screens.set(step.connected);
        EXPECT_EQ(cards(), step.cards) << step.title;
    }
    EXPECT_THAT(desk->placements(), ElementsAre(onDocked));
}

TEST_F(DeskOnMonitorsTest, WidgetsOfARenamedMonitorStayTogetherWhenOneIsMoved) {
    screens.set({nameless("A-1", builtIn)});
    start();
    const std::vector<QRect> before = cards();
    const Monitor renamed = nameless("B-1", builtIn);
    screens.set({renamed});
    EXPECT_EQ(cards(), before);
    CardWindow& window = *desk->window(desk->placements()[0].id);
    Q_EMIT window.dragged(QPoint(30, 60));
    Q_EMIT window.dropped();
    screens.set({});
    screens.set({renamed});
    EXPECT_THAT(cards(), SizeIs(before.size()));
    desk->add("A", small);
    screens.set({});
    screens.set({renamed});
    EXPECT_THAT(cards(), SizeIs(before.size() + 1));
    EXPECT_EQ(saved(), desk->placements());
}

TEST_F(DeskOnMonitorsTest, WidgetsOfTwoMonitorsThatBecameOneStandBesideEachOther) {
    Placement other = widgetA();
    other.id.bytes[0] = 1;
    other.monitor = nameless("A-2", beside).identity;
    Placement one = widgetA();
    one.monitor = nameless("A-1", builtIn).identity;
    save({one, other});
    screens.set({nameless("B-1", builtIn)});
    start();
    EXPECT_THAT(cards(), SizeIs(2));
    EXPECT_FALSE(anyOverlap(cards()));
}

TEST_F(DeskOnMonitorsTest, AnotherResolutionKeepsTheCornerAndRewritesNothing) {
    startWith(widgetA());
    Monitor coarse = laptop;
    coarse.geometry = coarse.available = QRect(0, 0, 1024, 768);
    screens.set({coarse});
    EXPECT_EQ(cardOf(widgetA().id), QRect(830, 52, 170, 170));
    coarse.geometry = coarse.available = QRect(0, 0, 180, 200);
    screens.set({coarse});
    EXPECT_EQ(cardOf(widgetA().id), QRect(0, 30, 170, 170));
    EXPECT_THAT(desk->placements(), ElementsAre(widgetA()));
    screens.set({laptop});
    EXPECT_EQ(cardOf(widgetA().id), QRect(1172, 52, 170, 170));
}

TEST_F(DeskOnMonitorsTest, AScaleMovesCardsByTheirCorner) {
    startWith(widgetA());
    scale = 1.5;
    desk->setScale(1.5);
    desk->window(widgetA().id)->card()->setFixedSize(255, 255);
    EXPECT_EQ(cardOf(widgetA().id), QRect(1087, 52, 255, 255));
}

TEST_F(DeskOnMonitorsTest, GrownCardsDoNotCoverEachOtherAndTheirPlacesStayRemembered) {
    screens.set({external});
    start();
    save(desk->placements());
    start(); // what was arranged in an earlier run stays
    const Placements before = desk->placements();
    grow(2);
    EXPECT_FALSE(anyOverlap(cards()));
    for (const QRect& card : cards())
        EXPECT_TRUE(external.geometry.contains(card));
    EXPECT_EQ(desk->placements(), before);
    EXPECT_EQ(saved(), before);
}

TEST_F(DeskOnMonitorsTest, TheFirstArrangementFollowsTheScaleUntilTheUserArrangesSomething) {
    screens.set({external});
    scale = 2;
    start();
    const std::vector<QRect> wanted = cards();
    desk.reset();
    EXPECT_TRUE(saved().has_value());
    EXPECT_TRUE(files.remove("/state/placements.json").has_value());
    scale = 1;
    start();
    grow(2);
    EXPECT_EQ(cards(), wanted);
    desk->remove(desk->placements().back().id);
    const Placements kept = desk->placements();
    grow(1);
    EXPECT_EQ(desk->placements(), kept);
}

TEST_F(DeskOnMonitorsTest, CardsThatASmallScreenPushesTogetherStandBesideEachOther) {
    start();
    Monitor flat = laptop;
    flat.geometry = flat.available = QRect(0, 0, 1366, 420);
    screens.set({flat});
    EXPECT_FALSE(anyOverlap(cards()));
}

} // namespace

} // namespace vantel::testing
