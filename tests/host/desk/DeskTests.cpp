#include "tests/host/desk/DeskFixture.h"

#include <gmock/gmock.h>

namespace vantel::testing {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

TEST_F(DeskTest, AFirstStartShowsEveryKindAndRemembersIt) {
    start();
    EXPECT_THAT(cards(),
                ElementsAre(QRect(978, 52, 364, 170), QRect(978, 246, 364, 170), QRect(1172, 440, 170, 170)));
    EXPECT_EQ(saved(), desk->placements());
    EXPECT_THAT(announced, ElementsAre(PlacedWidgets{{"A", medium}, {"B", medium}, {"C", small}}));
}

TEST_F(DeskTest, TheFirstArrangementStaysTogetherAtAnotherResolution) {
    start();
    Monitor fine = laptop;
    fine.geometry = fine.available = QRect(0, 0, 1920, 1080);
    screens.set({fine});
    EXPECT_THAT(cards(), ElementsAre(QRect(1532, 52, 364, 170), QRect(1532, 246, 364, 170),
                                     QRect(1726, 440, 170, 170)));
}

TEST_F(DeskTest, TheFirstArrangementMakesWidgetsSmallWhereAScaleTakesTheirRoom) {
    Monitor low = laptop;
    low.geometry = low.available = QRect(0, 0, 1000, 220);
    screens.set({low});
    start();
    EXPECT_EQ(desk->placements().front().family, medium);
    scale = 1.25;
    grow(scale);
    EXPECT_EQ(saved()->front().family, small);
    EXPECT_EQ(cards().front().size(), QSize(213, 213));
    EXPECT_EQ(announced.back().front(), (WidgetKey{"A", small}));
}

TEST_F(DeskTest, AFirstStartWithoutAMonitorWaitsForOne) {
    screens.set({});
    start();
    EXPECT_THAT(desk->placements(), IsEmpty());
    screens.set({laptop});
    EXPECT_THAT(cards(), SizeIs(3));
}

TEST_F(DeskTest, AnotherStartShowsThemWhereTheyWere) {
    startWith(widgetA());
    EXPECT_EQ(cardOf(widgetA().id), QRect(1172, 52, 170, 170));
    EXPECT_THAT(desk->placements(), ElementsAre(widgetA()));
}

TEST_F(DeskTest, WhoRemovedAllWidgetsStartsWithNone) {
    save({});
    start();
    EXPECT_THAT(cards(), IsEmpty());
}

TEST_F(DeskTest, TwoOfOneKindStandSideBySide) {
    startWith(widgetA());
    desk->add("A", small);
    EXPECT_THAT(cards(), ElementsAre(QRect(1172, 52, 170, 170), QRect(1172, 246, 170, 170)));
    EXPECT_EQ(saved(), desk->placements());
}

TEST_F(DeskTest, EachOfTwoOfOneKindIsTold) {
    startWith(widgetA());
    desk->add("A", small);
    desk->remove(widgetA().id);
    const WidgetKey key{"A", small};
    EXPECT_THAT(announced, ElementsAre(PlacedWidgets{key}, PlacedWidgets{key, key}, PlacedWidgets{key}));
}

TEST_F(DeskTest, WhatTheBundleDoesNotDeclareIsNotAdded) {
    startWith(widgetA());
    desk->add("B", small);
    desk->add("Unknown", small);
    EXPECT_THAT(cards(), SizeIs(1));
}

TEST_F(DeskTest, WhatTheBundleNoLongerDeclaresIsKeptButNotShown) {
    Placement unknown = widgetA();
    unknown.kind = "Former";
    unknown.frame = frameOf(laptop);
    startWith(unknown);
    EXPECT_THAT(cards(), IsEmpty());
    desk->add("A", small);
    EXPECT_EQ(saved()->front(), unknown);
}

TEST_F(DeskTest, ARemovedWidgetIsGoneForGood) {
    startWith(widgetA());
    desk->remove(widgetA().id);
    EXPECT_THAT(cards(), IsEmpty());
    EXPECT_EQ(saved(), Placements());
    EXPECT_THAT(announced, ElementsAre(PlacedWidgets{{"A", small}}, PlacedWidgets{}));
}

TEST_F(DeskTest, AnotherSizeKeepsTheCorner) {
    startWith(widgetA());
    desk->resize(widgetA().id, medium);
    EXPECT_EQ(cardOf(widgetA().id), QRect(978, 52, 364, 170));
    EXPECT_EQ(saved()->front().family, medium);
}

TEST_F(DeskTest, AnotherSizeThatWouldLieOverANeighbourGoesToAFreeSpot) {
    Placement left = widgetA();
    left.id.bytes[0] = 1;
    left.margins.horizontal = 218;
    save({widgetA(), left});
    start();
    desk->resize(widgetA().id, medium);
    EXPECT_EQ(cardOf(widgetA().id), QRect(978, 246, 364, 170));
}

TEST_F(DeskTest, ASizeThatAKindDoesNotDeclareChangesNothing) {
    startWith(widgetA());
    desk->resize(widgetA().id, WidgetFamily::systemLarge);
    EXPECT_EQ(saved()->front(), widgetA());
}

TEST_F(DeskTest, ADragSnapsAndIsSavedAtItsEnd) {
    startWith(widgetA());
    CardWindow& window = *desk->window(widgetA().id);
    Q_EMIT window.dragged(QPoint(30, 60));
    EXPECT_EQ(window.cardGeometry().topLeft(), QPoint(24, 52));
    EXPECT_THAT(saved()->front(), widgetA());
    Q_EMIT window.dropped();
    EXPECT_EQ(saved()->front().corner, Corner::topLeft);
    EXPECT_EQ(saved()->front().margins, (Margins{24, 52}));
}

TEST_F(DeskTest, ADragToAnotherMonitorMakesTheWidgetThatMonitors) {
    screens.set({laptop, external});
    startWith(widgetA());
    CardWindow& window = *desk->window(widgetA().id);
    Q_EMIT window.dragged(QPoint(1400, 30));
    Q_EMIT window.dropped();
    EXPECT_EQ(saved()->front().monitor, external.identity);
    EXPECT_EQ(saved()->front().corner, Corner::topLeft);
    EXPECT_EQ(saved()->front().margins, (Margins{24, 24}));
}

TEST_F(DeskTest, ADragBeyondAllScreensStaysOnItsOwn) {
    startWith(widgetA());
    CardWindow& window = *desk->window(widgetA().id);
    Q_EMIT window.dragged(QPoint(5000, 5000));
    EXPECT_EQ(window.cardGeometry(), QRect(1172, 574, 170, 170));
}

Placement below(const Placement& other) {
    Placement placement = other;
    placement.id.bytes[0] = 1;
    placement.margins.vertical += 300;
    return placement;
}

TEST_F(DeskTest, ACardThatIsDroppedOntoAnotherComesToRestBesideIt) {
    save({widgetA(), below(widgetA())});
    start();
    CardWindow& window = *desk->window(widgetA().id);
    Q_EMIT window.dragged(QPoint(1060, 300));
    ASSERT_TRUE(window.cardGeometry().intersects(cardOf(below(widgetA()).id)));
    Q_EMIT window.dropped();
    EXPECT_EQ(window.cardGeometry(), QRect(978, 300, 170, 170));
    EXPECT_EQ(saved()->front().margins, (Margins{218, 298}));
    EXPECT_EQ(cardOf(below(widgetA()).id), QRect(1172, 352, 170, 170));
}

TEST_F(DeskTest, ACardThatIsDroppedOnAFullScreenStaysWhereItWasDropped) {
    Monitor tight = laptop;
    tight.geometry = tight.available = QRect(0, 0, 360, 190);
    screens.set({tight});
    Placement left = widgetA();
    left.id.bytes[0] = 1;
    left.kind = "B";
    left.family = medium;
    left.margins = {0, 0};
    save({widgetA(), left});
    start();
    CardWindow& window = *desk->window(widgetA().id);
    Q_EMIT window.dragged(QPoint(100, 10));
    const QRect where = window.cardGeometry();
    Q_EMIT window.dropped();
    EXPECT_EQ(window.cardGeometry(), where);
}

TEST_F(DeskTest, AWindowBearsTheNameOfItsWidget) {
    startWith(widgetA());
    EXPECT_EQ(desk->window(widgetA().id)->windowTitle(), QStringLiteral("Widget A"));
}

TEST_F(DeskTest, TheMenuAsksForWhatItSays) {
    startWith(widgetA());
    std::vector<std::string> asked;
    QObject::connect(desk.get(), &Desk::reloadAsked, [&](const std::string& kind) { asked.push_back(kind); });
    QObject::connect(desk.get(), &Desk::addWidgetsAsked, [&] { asked.emplace_back("add"); });
    QObject::connect(desk.get(), &Desk::aboutAsked, [&] { asked.emplace_back("about"); });
    QObject::connect(desk.get(), &Desk::quitAsked, [&] { asked.emplace_back("quit"); });
    CardWindow& window = *desk->window(widgetA().id);
    using enum MenuCommand;
    for (const MenuCommand command : {reload, addWidgets, about, quit})
        Q_EMIT window.commandChosen(command);
    EXPECT_THAT(asked, ElementsAre("A", "add", "about", "quit"));
    Q_EMIT window.familyChosen(medium);
    EXPECT_EQ(desk->placements().front().family, medium);
    Q_EMIT desk->window(widgetA().id)->commandChosen(remove);
    EXPECT_THAT(desk->placements(), IsEmpty());
}

TEST_F(DeskTest, TheKeyboardGoesFromWidgetToWidget) {
    start();
    std::vector<QWidget*> focused;
    QObject::connect(desk.get(), &Desk::cardFocused, [&](QWidget* card) { focused.push_back(card); });
    for (int i = 0; i < 4; ++i)
        desk->focusWidgets();
    const auto cardAt = [&](std::size_t i) { return desk->window(desk->placements()[i].id)->card(); };
    EXPECT_THAT(focused, ElementsAre(cardAt(0), cardAt(1), cardAt(2), cardAt(0)));
}

TEST_F(DeskTest, WithoutWidgetsTheKeyboardStaysWhereItIs) {
    save({});
    start();
    desk->focusWidgets();
    EXPECT_THAT(cards(), IsEmpty());
}

} // namespace

} // namespace vantel::testing
