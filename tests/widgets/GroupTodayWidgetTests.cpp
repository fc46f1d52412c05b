#include "tests/fakes/FakeCalendar.h"
#include "tests/widgets/WidgetFixture.h"
#include "widgets/WTokens.h"
#include "widgets/WidgetLinks.h"
#include "widgets/grouptoday/GroupRows.h"
#include "widgets/grouptoday/GroupTodayWidget.h"

#include <gtest/gtest.h>

namespace vantel {
namespace {

using namespace testing;
using Kind = WidgetHorizonItem::Kind;
using Lines = std::vector<std::string>;

const Instant now = at("2026-11-17T09:20");

WidgetHorizonItem item(std::string id, Kind kind, const char* day, std::string label,
                       std::optional<Instant> endDay = std::nullopt) {
    return {.id = id,
            .day = at(day),
            .label = std::move(label),
            .subject = "S-" + id,
            .kind = kind,
            .endDay = endDay};
}

WidgetSnapshot snapshotWith(std::vector<WidgetHorizonItem> horizon) {
    WidgetSnapshot snapshot = emptySnapshot(now);
    snapshot.horizon = std::move(horizon);
    return snapshot;
}

std::vector<GroupRow> rowsOf(std::vector<WidgetHorizonItem> horizon) {
    return buildRows(snapshotWith(std::move(horizon)), now, berlin(), plainFormats());
}

Lines textsOf(std::vector<WidgetHorizonItem> horizon) {
    return texts(groupTodayView(entry(snapshotWith(std::move(horizon)), now), medium()).content);
}

TEST(GroupTodayWidget, WithoutASnapshotItShowsTheSetupStateAndNoLink) {
    const WidgetContent content = groupTodayView({now, nullptr}, medium());
    EXPECT_EQ(texts(content.content).front(), "Halvo");
    EXPECT_EQ(content.widgetURL, std::nullopt);
}

TEST(GroupTodayWidget, OfFiveItemsThreeShowAndTheFooterCountsAll) {
    const Lines found = textsOf({item("a", Kind::personDate, "2026-11-18T09:00", "Birthday"),
                                 item("b", Kind::grantDeadline, "2026-11-19T09:00", "Report"),
                                 item("c", Kind::personDate, "2026-11-20T09:00", "contract ends"),
                                 item("d", Kind::absence, "2026-11-16T00:00", "Urlaub", at("2026-11-20")),
                                 item("e", Kind::personDate, "2026-11-21T09:00", "Defense")});
    EXPECT_EQ(found, (Lines{"GROUP TODAY", "S-c · contract ends", "in 3d", "Urlaub · until Fri",
                            "S-a · Birthday", "in 1d", "5 dates in 30 days", "opens People"}));
}

TEST(GroupTodayWidget, AContractWithinTheWeekGivesOneFlaggedRow) {
    const auto rows = rowsOf({item("c", Kind::personDate, "2026-11-18T09:00", "PhD contract ends")});
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0], (GroupRow{"c", "flag", "S-c · PhD contract ends", "in 1d", true}));
}

TEST(GroupTodayWidget, AContractIsToldByLowerCaseAndAtAnyDistance) {
    EXPECT_TRUE(
        rowsOf({item("c", Kind::personDate, "2027-11-18T09:00", "subcontract signed")}).at(0).isFlagged);
    EXPECT_TRUE(rowsOf({item("c", Kind::personDate, "2027-11-18T09:00", "Contract ends")}).empty());
    EXPECT_FALSE(rowsOf({item("c", Kind::personDate, "2026-11-18T09:00", "Contract ends")}).at(0).isFlagged);
    EXPECT_FALSE(
        rowsOf({item("c", Kind::grantDeadline, "2026-11-18T09:00", "contract due")}).at(0).isFlagged);
}

TEST(GroupTodayWidget, OneItemIsOneDate) {
    EXPECT_EQ(textsOf({item("a", Kind::personDate, "2026-11-18T09:00", "Defense")}),
              (Lines{"GROUP TODAY", "S-a · Defense", "in 1d", "1 date in 30 days", "opens People"}));
    EXPECT_EQ(groupFooterText(snapshotWith({}), plainFormats()), "0 dates in 30 days");
}

TEST(GroupTodayWidget, NothingAheadIsAllQuietWithoutAFooter) {
    const Lines quiet = {"All quiet", "No absences or lab dates coming up."};
    EXPECT_EQ(textsOf({}), quiet);
    EXPECT_EQ(textsOf({item("a", Kind::personDate, "2026-11-16T23:59", "Defense")}), quiet);
    EXPECT_EQ(textsOf({item("a", Kind::grantMilestone, "2026-11-18T09:00", "Freeze")}), quiet);
    EXPECT_EQ(textsOf({item("a", Kind::absence, "2026-11-18T09:00", "Urlaub")}), quiet);
}

TEST(GroupTodayWidget, ItemsWhoseLastDayIsOverGiveNoRow) {
    EXPECT_TRUE(
        rowsOf({item("a", Kind::absence, "2026-11-09T00:00", "Urlaub", at("2026-11-16T23:59:59"))}).empty());
    EXPECT_EQ(rowsOf({item("a", Kind::absence, "2026-11-09T00:00", "Urlaub", at("2026-11-17T00:00"))}).size(),
              1U);
}

TEST(GroupTodayWidget, AnAbsenceFromLastMondayToNextFridayTellsItsEnd) {
    const auto rows = rowsOf({item("a", Kind::absence, "2026-11-09T00:00", "Urlaub", at("2026-11-27"))});
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0], (GroupRow{"a", "sun.max", "Urlaub · until Fri", std::nullopt, false}));
}

TEST(GroupTodayWidget, AnAbsenceOfOneDayShowsItsLabelAloneWhenItBeganAtTheDaysStart) {
    EXPECT_EQ(rowsOf({item("a", Kind::absence, "2026-11-17T00:00", "Urlaub")}).at(0).text, "Urlaub");
    EXPECT_TRUE(rowsOf({item("a", Kind::absence, "2026-11-17T00:00:01", "Urlaub")}).empty());
}

TEST(GroupTodayWidget, TheWeekEndsSevenDaysAfterTodayBegan) {
    EXPECT_EQ(rowsOf({item("a", Kind::personDate, "2026-11-24T00:00", "Defense")}).size(), 1U);
    EXPECT_TRUE(rowsOf({item("a", Kind::personDate, "2026-11-24T00:00:01", "Defense")}).empty());
}

TEST(GroupTodayWidget, AnIdIsShownOnceAndEqualDaysKeepTheirOrder) {
    const auto rows = rowsOf({item("x", Kind::personDate, "2026-11-18T09:00", "second"),
                              item("a", Kind::personDate, "2026-11-18T09:00", "third"),
                              item("x", Kind::personDate, "2026-11-18T08:00", "first")});
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0].text, "S-x · first");
    EXPECT_EQ(rows[1].id, "a");
}

TEST(GroupTodayWidget, WithoutCalendarArithmeticOnlyContractsAndAbsencesShow) {
    const auto snapshot = snapshotWith({item("a", Kind::personDate, "2026-11-18T09:00", "Defense"),
                                        item("c", Kind::personDate, "2026-11-18T09:00", "contract")});
    const auto rows = buildRows(snapshot, now, CalendarWithoutArithmetic(), plainFormats());
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].id, "c");
}

TEST(GroupTodayWidget, RowsHaveTheirSizesAndColours) {
    const WidgetContent content =
        groupTodayView(entry(snapshotWith({item("c", Kind::personDate, "2026-11-18T09:00", "contract"),
                                           item("b", Kind::grantDeadline, "2026-11-19T09:00", "Report")}),
                             now),
                       medium());
    EXPECT_EQ(content.widgetURL, WidgetLinks::people());
    EXPECT_EQ(content.background, WTokens::windowBg);
    EXPECT_EQ(content.content.padding, Padding::all(9));
    const auto symbols = all<Symbol>(content.content);
    EXPECT_EQ(symbols.at(0), (Symbol{"flag", 10, WTokens::priHighText}));
    EXPECT_EQ(symbols.at(1), (Symbol{"flag", 10, PrimaryColor{0.5}}));
    EXPECT_EQ(textNamed(content.content, "in 1d").style.color, Color(WTokens::priHighText));
    EXPECT_EQ(textNamed(content.content, "in 2d").style.color, Color(PrimaryColor{0.4}));
    EXPECT_EQ(textNamed(content.content, "in 2d").style.font, Font{9.5});
    EXPECT_EQ(textNamed(content.content, "S-b · Report").style.font, Font{11.5});
    EXPECT_EQ(textNamed(content.content, "S-b · Report").style.lineLimit, 1);
}

} // namespace
} // namespace vantel
