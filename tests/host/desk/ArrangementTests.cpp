#include "host/desk/Arrangement.h"
#include "hosting/WidgetBundle.h"

#include <algorithm>

#include <gmock/gmock.h>

namespace vantel {

namespace {

using ::testing::ElementsAre;

constexpr WidgetFamily small = WidgetFamily::systemSmall;
constexpr WidgetFamily medium = WidgetFamily::systemMedium;
constexpr WidgetFamily large = WidgetFamily::systemLarge;

using Kinds = std::vector<std::pair<std::string, std::vector<WidgetFamily>>>;

WidgetBundle bundleOf(const Kinds& kinds) {
    WidgetBundle bundle;
    for (const auto& [kind, families] : kinds) {
        StaticConfiguration configuration;
        configuration.kind = kind;
        configuration.supportedFamilies = families;
        bundle.widgets.push_back(configuration);
    }
    return bundle;
}

WidgetBundle fourWidgets() {
    return bundleOf({{"a", {small, medium}}, {"b", {small, medium}}, {"c", {small}}, {"d", {medium}}});
}

using Rows = std::vector<std::vector<WantedWidget>>;

TEST(FirstRows, AKindThatIsOnlySmallSharesTheRowOfTheOneBefore) {
    EXPECT_EQ(firstRows(fourWidgets()),
              Rows({{{"a", medium}}, {{"b", small}, {"c", small}}, {{"d", medium}}}));
}

TEST(FirstRows, SmallOnesPairUp) {
    const Kinds kinds{{"a", {medium}}, {"b", {small}}, {"c", {small}},
                      {"d", {small}},  {"e", {large}}, {"f", {}}};
    EXPECT_EQ(firstRows(bundleOf(kinds)),
              Rows({{{"a", medium}}, {{"b", small}, {"c", small}}, {{"d", small}}, {{"e", large}}}));
}

std::vector<QRect> cardsOf(const std::vector<WidgetSpot>& spots) {
    std::vector<QRect> cards;
    for (const WidgetSpot& spot : spots)
        cards.push_back(spot.card);
    return cards;
}

std::vector<QRect> firstCards(const QRect& area, double scale) {
    return cardsOf(firstArrangement(fourWidgets(), area, scale));
}

TEST(FirstArrangement, IsOneColumnAtTheTopRightOfASmallLaptop) {
    EXPECT_THAT(firstCards(QRect(0, 28, 1366, 740), 1),
                ElementsAre(QRect(978, 52, 364, 170), QRect(978, 246, 170, 170), QRect(1172, 246, 170, 170),
                            QRect(978, 440, 364, 170)));
}

TEST(FirstArrangement, GoesOnInAColumnToTheLeftWhereTheScreenEnds) {
    EXPECT_THAT(firstCards(QRect(0, 0, 1024, 500), 1),
                ElementsAre(QRect(636, 24, 364, 170), QRect(636, 218, 170, 170), QRect(830, 218, 170, 170),
                            QRect(248, 24, 364, 170)));
}

bool keepApart(const std::vector<QRect>& cards, int gap) {
    for (std::size_t i = 0; i < cards.size(); ++i)
        for (std::size_t j = 0; j < i; ++j)
            if (cards[i].adjusted(-gap, -gap, gap, gap).intersects(cards[j]))
                return false;
    return true;
}

TEST(FirstArrangement, KeepsItsDistancesOnEveryUsualScreen) {
    const QRect areas[] = {{0, 0, 1280, 680},      {0, 28, 1366, 740},    {0, 32, 1920, 1048},
                           {-2560, 0, 2560, 1400}, {1920, 0, 3840, 2128}, {48, 0, 1032, 1920}};
    for (const QRect& area : areas)
        for (const double scale : {1.0, 1.25, 1.5}) {
            const std::vector<QRect> cards = firstCards(area, scale);
            const int gap = cardGap(scale);
            EXPECT_TRUE(keepApart(cards, gap)) << area.width() << " at " << scale;
            const QRect inside = area.adjusted(gap, gap, -gap, -gap);
            for (const QRect& card : cards)
                EXPECT_TRUE(inside.contains(card)) << area.width() << " at " << scale;
        }
}

TEST(FirstArrangement, PutsSmallOnesBesideLargeOnesWhereRowsFindNoRoom) {
    EXPECT_THAT(firstCards(QRect(0, 0, 640, 480), 1),
                ElementsAre(QRect(252, 24, 364, 170), QRect(58, 24, 170, 170), QRect(58, 218, 170, 170),
                            QRect(252, 218, 364, 170)));
}

TEST(FirstArrangement, StandsCloserOnAHalvedLaptop) {
    EXPECT_THAT(firstCards(QRect(0, 0, 683, 384), 1),
                ElementsAre(QRect(307, 12, 364, 170), QRect(125, 12, 170, 170), QRect(125, 194, 170, 170),
                            QRect(307, 194, 364, 170)));
}

TEST(FirstArrangement, MakesNoMoreOfThemSmallThanItMust) {
    const WidgetBundle bundle = bundleOf({{"a", {small, medium}}, {"b", {small, medium}}, {"c", {medium}}});
    EXPECT_EQ(firstArrangement(bundle, QRect(0, 0, 1000, 220), 1),
              (std::vector<WidgetSpot>{{{"a", medium}, QRect(612, 24, 364, 170)},
                                       {{"b", small}, QRect(30, 24, 170, 170)},
                                       {{"c", medium}, QRect(224, 24, 364, 170)}}));
}

/// Whether the title of a card is seen beside another card, should that lie above.
bool showsItsTitle(const QRect& card, const QRect& other, double scale) {
    return !QRect(card.topLeft(), (QSizeF(96, 40) * scale).toSize()).intersects(other);
}

TEST(FirstArrangement, ShowsEveryTitleWhicheverCardLiesAboveWhereTheyMustLieOverEachOther) {
    const std::pair<QRect, double> rows[] = {
        {{0, 0, 458, 290}, 1}, {{0, 28, 683, 300}, 1}, {{0, 0, 683, 384}, 1.25}};
    for (const auto& [area, scale] : rows) {
        const std::vector<QRect> cards = firstCards(area, scale);
        for (const QRect& card : cards) {
            EXPECT_TRUE(area.contains(card)) << area.width() << " at " << scale;
            for (const QRect& other : cards)
                EXPECT_TRUE(&other == &card || showsItsTitle(card, other, scale))
                    << area.width() << " at " << scale;
        }
    }
}

TEST(FirstArrangement, OnATinyScreenShowsEveryTitleWhereLaterCardsLieAbove) {
    const QRect area(0, 0, 400, 300);
    const std::vector<QRect> cards = firstCards(area, 1);
    for (std::size_t i = 0; i < cards.size(); ++i) {
        EXPECT_TRUE(area.contains(cards[i])) << i;
        for (std::size_t above = i + 1; above < cards.size(); ++above)
            EXPECT_TRUE(showsItsTitle(cards[i], cards[above], 1)) << i << " below " << above;
    }
}

TEST(FirstArrangement, StaysOnAScreenThatIsTooSmallForAllTitles) {
    const QRect area(0, 0, 364, 180);
    for (const QRect& card : firstCards(area, 1))
        EXPECT_TRUE(area.contains(card));
}

constexpr QSize smallCard(170, 170);
const QRect desk(0, 0, 1000, 500);

TEST(FreeSpot, OfAnEmptyDeskIsItsTopRight) {
    EXPECT_EQ(freeSpot(smallCard, {}, desk, 1), QPoint(806, 24));
}

TEST(FreeSpot, IsBelowTheLastCardOfTheColumn) {
    EXPECT_EQ(freeSpot(smallCard, {QRect(806, 24, 170, 170)}, desk, 1), QPoint(806, 218));
}

TEST(FreeSpot, IsLeftOfAFullColumn) {
    const std::vector<QRect> taken{QRect(806, 24, 170, 170), QRect(806, 218, 170, 170)};
    EXPECT_EQ(freeSpot(smallCard, taken, desk, 1), QPoint(612, 24));
}

TEST(FreeSpot, FillsAGap) {
    const std::vector<QRect> taken{QRect(612, 24, 364, 170), QRect(612, 218, 170, 170)};
    EXPECT_EQ(freeSpot(smallCard, taken, desk, 1), QPoint(806, 218));
}

TEST(FreeSpot, IsCloserToTheOthersBeforeItLiesOverOne) {
    const QRect tight(0, 0, 364, 190);
    const QRect other(194, 10, 170, 170);
    EXPECT_EQ(freeSpot(smallCard, {other}, tight, 1), QPoint(18, 6));
    EXPECT_EQ(freeSpot(smallCard, {QRect(182, 0, 170, 170)}, QRect(0, 0, 352, 170), 1), QPoint(12, 0));
}

TEST(FreeSpot, OfAFullDeskHidesNoTitle) {
    const std::vector<QRect> taken{desk, QRect(806, 24, 170, 170), QRect(782, 48, 170, 170)};
    EXPECT_EQ(freeSpot(smallCard, taken, desk, 1), QPoint(806, 88));
}

TEST(FreeSpot, WhereATitleMustBeHiddenDoesNotHideAnotherCardWholly) {
    const QRect tiny(0, 0, 260, 190);
    EXPECT_EQ(freeSpot(smallCard, {tiny, QRect(66, 24, 170, 170)}, tiny, 1), QPoint(42, 20));
}

TEST(FreeSpot, GrowsItsDistanceWithTheScale) {
    EXPECT_EQ(freeSpot(QSize(340, 340), {}, desk, 2), QPoint(612, 48));
}

struct NearCase {
    const char* name;
    QRect wanted;
    std::vector<QRect> taken;
    QRect area;
    std::optional<QPoint> spot;
};

const NearCase nearCases[] = {
    {"free already", QRect(300, 100, 170, 170), {}, desk, QPoint(300, 100)},
    {"over the right of another",
     QRect(400, 110, 170, 170),
     {QRect(300, 100, 170, 170)},
     desk,
     QPoint(494, 110)},
    {"over the left of another",
     QRect(200, 110, 170, 170),
     {QRect(300, 100, 170, 170)},
     desk,
     QPoint(106, 110)},
    {"over the foot of another",
     QRect(310, 240, 170, 170),
     {QRect(300, 100, 170, 170)},
     desk,
     QPoint(310, 294)},
    {"no room above", QRect(310, 40, 170, 170), {QRect(300, 100, 170, 170)}, desk, QPoint(494, 40)},
    {"beside both of two",
     QRect(400, 110, 170, 170),
     {QRect(300, 100, 170, 170), QRect(494, 100, 170, 170)},
     desk,
     QPoint(400, 294)},
    {"between two, closer than usual",
     QRect(30, 10, 170, 170),
     {QRect(0, 10, 100, 170), QRect(294, 10, 100, 170)},
     QRect(0, 0, 394, 190),
     QPoint(106, 10)},
    {"beyond the area", QRect(-50, 400, 170, 170), {}, desk, QPoint(24, 306)},
    {"nowhere", QRect(10, 10, 170, 170), {QRect(0, 0, 300, 170)}, QRect(0, 0, 364, 190), std::nullopt},
};

TEST(FreeSpotNear, IsAsNearAsThereIsRoom) {
    for (const auto& [name, wanted, taken, area, spot] : nearCases)
        EXPECT_EQ(freeSpotNear(wanted, taken, area, 1), spot) << name;
}

struct CornerCase {
    QRect card;
    Corner corner;
    Margins margins;
};

const QRect screen(1920, 100, 1000, 800);

const CornerCase cornerCases[] = {
    {QRect(1944, 124, 170, 170), Corner::topLeft, {24, 24}},
    {QRect(2720, 130, 170, 170), Corner::topRight, {30, 30}},
    {QRect(1920, 720, 170, 170), Corner::bottomLeft, {0, 10}},
    {QRect(2740, 725, 170, 170), Corner::bottomRight, {10, 5}},
    {QRect(2335, 415, 170, 170), Corner::topRight, {415, 315}},
    {QRect(2334, 416, 170, 170), Corner::bottomLeft, {414, 314}},
};

TEST(NearestCorner, IsTheOneWithTheShortestWays) {
    for (const auto& [card, corner, margins] : cornerCases)
        EXPECT_EQ(nearestCorner(card, screen), corner) << card.x();
}

TEST(MarginsFrom, CountFromTheCorner) {
    for (const auto& [card, corner, margins] : cornerCases)
        EXPECT_EQ(marginsFrom(corner, card, screen), margins) << card.x();
}

Placement at(Corner corner, Margins margins) {
    return {.corner = corner, .margins = margins};
}

TEST(PositionOf, IsWhereTheCornerAndMarginsSay) {
    for (const auto& [card, corner, margins] : cornerCases)
        EXPECT_EQ(positionOf(at(corner, margins), card.size(), screen), card.topLeft()) << card.x();
}

TEST(PositionOf, KeepsItsCornerWhenTheResolutionChanges) {
    const Placement placement = at(Corner::bottomRight, {10, 5});
    EXPECT_EQ(positionOf(placement, smallCard, QRect(0, 0, 640, 480)), QPoint(460, 305));
}

TEST(PositionOf, IsOnTheScreenWhateverTheMarginsSay) {
    const QRect tiny(0, 0, 640, 480);
    EXPECT_EQ(positionOf(at(Corner::topLeft, {5000, -40}), smallCard, tiny), QPoint(470, 0));
    EXPECT_EQ(positionOf(at(Corner::bottomRight, {5000, -40}), smallCard, tiny), QPoint(0, 310));
    EXPECT_EQ(positionOf(at(Corner::bottomRight, {0, 0}), QSize(700, 500), tiny), QPoint(0, 0));
}

} // namespace

} // namespace vantel
