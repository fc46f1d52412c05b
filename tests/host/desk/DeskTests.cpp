#include "host/desk/Desk.h"
#include "host/scene/Look.h"
#include "host/surface/PlainWindowSystem.h"
#include "hosting/WidgetBundle.h"
#include "tests/fakes/FakeFormats.h"
#include "tests/fakes/MemoryFileSystem.h"
#include "tests/fakes/SequentialUuids.h"

#include <QCoreApplication>

#include <gmock/gmock.h>

namespace vantel::testing {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr WidgetFamily small = WidgetFamily::systemSmall;
constexpr WidgetFamily medium = WidgetFamily::systemMedium;

class FakeScreens final : public Screens {
public:
    std::vector<Monitor> monitors() const override { return m_monitors; }

    void set(std::vector<Monitor> monitors) {
        m_monitors = std::move(monitors);
        Q_EMIT changed();
    }

private:
    std::vector<Monitor> m_monitors;
};

const Monitor laptop{
    {"Acme", "Panel", "", "eDP-1"}, QRect(0, 0, 1366, 768), QRect(0, 28, 1366, 740), nullptr};
const Monitor external{
    {"Acme", "M27", "7", "DP-1"}, QRect(1366, 0, 2560, 1440), QRect(1366, 0, 2560, 1440), nullptr};

WidgetBundle threeWidgets() {
    WidgetBundle bundle;
    for (const auto& [kind, families] :
         {std::pair("A", std::vector{small, medium}), std::pair("B", std::vector{medium}),
          std::pair("C", std::vector{small})}) {
        StaticConfiguration configuration;
        configuration.kind = kind;
        configuration.displayName = std::string("Widget ") + kind;
        configuration.supportedFamilies = families;
        bundle.widgets.push_back(configuration);
    }
    return bundle;
}

struct DeskTest : ::testing::Test {
    WidgetBundle bundle = threeWidgets();
    PlainFormats formats;
    PlainWindowSystem windows;
    FakeScreens screens;
    MemoryFileSystem files;
    PlacementSaver store{"/state", files, [](const std::string&) {}};
    SequentialUuids identifiers;
    double scale = 1;
    std::unique_ptr<Desk> desk;
    std::vector<PlacedWidgets> announced;

    DeskTest() { screens.set({laptop}); }
    ~DeskTest() override { EXPECT_TRUE(store.drain(std::chrono::seconds(10))); }

    void start() {
        desk.reset();
        desk =
            std::make_unique<Desk>(DeskParts{bundle, formats, windows, screens, store, identifiers,
                                             [this](const Placement& placement) { return card(placement); }},
                                   scale);
        QObject::connect(desk.get(), &Desk::placedChanged,
                         [this](const PlacedWidgets& placed) { announced.push_back(placed); });
        desk->start();
    }

    void save(const Placements& placements) {
        store.save(placements);
        ASSERT_TRUE(store.drain(std::chrono::seconds(10)));
    }

    /// What is on the disk once everything is written.
    std::optional<Placements> saved() {
        EXPECT_TRUE(store.drain(std::chrono::seconds(10)));
        return store.load();
    }

    QWidget* card(const Placement& placement) const {
        auto* widget = new QWidget;
        widget->setFixedSize(cardSize(placement.family, scale).toSize());
        return widget;
    }

    /// Starts with one widget, as if it had been left there.
    void startWith(const Placement& placement) {
        save({placement});
        start();
    }

    static Placement widgetA() {
        return {.id = *parseUuid("00000000-0000-4000-8000-0000000000AA"),
                .kind = "A",
                .family = small,
                .monitor = laptop.identity,
                .corner = Corner::topRight,
                .margins = {24, 52}};
    }

    void grow(double scaleNow) {
        for (const Placement& placement : desk->placements())
            desk->window(placement.id)->card()->setFixedSize(cardSize(placement.family, scaleNow).toSize());
        desk->setScale(scaleNow);
    }

    QRect cardOf(const Uuid& id) const { return desk->window(id)->cardGeometry(); }

    std::vector<QRect> cards() const {
        std::vector<QRect> found;
        for (const Placement& placement : desk->placements())
            if (desk->window(placement.id) != nullptr)
                found.push_back(cardOf(placement.id));
        return found;
    }
};

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

TEST_F(DeskTest, AWidgetWaitsForItsMonitorAndReturnsWithIt) {
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

TEST_F(DeskTest, WidgetsOfANamelessMonitorComeAndGoWithDocking) {
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

TEST_F(DeskTest, WidgetsOfARenamedMonitorStayTogetherWhenOneIsMoved) {
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

bool anyOverlap(const std::vector<QRect>& cards) {
    for (std::size_t i = 0; i < cards.size(); ++i)
        for (std::size_t j = i + 1; j < cards.size(); ++j)
            if (cards[i].intersects(cards[j]))
                return true;
    return false;
}

TEST_F(DeskTest, WidgetsOfTwoMonitorsThatBecameOneStandBesideEachOther) {
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

TEST_F(DeskTest, AnotherResolutionKeepsTheCornerAndRewritesNothing) {
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

TEST_F(DeskTest, AScaleMovesCardsByTheirCorner) {
    startWith(widgetA());
    scale = 1.5;
    desk->setScale(1.5);
    desk->window(widgetA().id)->card()->setFixedSize(255, 255);
    EXPECT_EQ(cardOf(widgetA().id), QRect(1087, 52, 255, 255));
}

TEST_F(DeskTest, GrownCardsDoNotCoverEachOtherAndTheirPlacesStayRemembered) {
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

TEST_F(DeskTest, TheFirstArrangementFollowsTheScaleUntilTheUserArrangesSomething) {
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

TEST_F(DeskTest, CardsThatASmallScreenPushesTogetherStandBesideEachOther) {
    start();
    Monitor flat = laptop;
    flat.geometry = flat.available = QRect(0, 0, 1366, 420);
    screens.set({flat});
    EXPECT_FALSE(anyOverlap(cards()));
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
