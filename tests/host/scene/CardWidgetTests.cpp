#include "host/scene/ActionArea.h"
#include "tests/host/scene/CardWidgetFixture.h"

#include <QApplication>

#include <gtest/gtest.h>

namespace vantel {

namespace {

using namespace testing;

TEST_F(CardWidgetTest, HasTheSizeOfItsFamilyTimesTheScale) {
    EXPECT_EQ(card.size(), QSize(170, 170));
    Look look = testLook();
    look.scale = 2;
    card.setLook(look);
    EXPECT_EQ(card.size(), QSize(340, 340));
}

TEST_F(CardWidgetTest, AnEqualViewCostsNoPaint) {
    QCoreApplication::processEvents();
    const int before = paints.count;
    card.setView(twoTasks());
    card.setLook(testLook());
    card.setNow(instantFromReference(60));
    QCoreApplication::processEvents();
    EXPECT_EQ(paints.count, before);
}

TEST_F(CardWidgetTest, AClickOnACircleRunsItsIntentAndNothingElse) {
    QTest::mouseClick(card.childAt(22, 29), Qt::LeftButton);
    ASSERT_EQ(intents.count(), 1);
    EXPECT_EQ(intents[0][0].value<IntentCall>(), completeFirst);
    EXPECT_EQ(links.count(), 0);
}

TEST_F(CardWidgetTest, AClickOnATaskOpensItAndAClickElsewhereOpensTheWidget) {
    QTest::mouseClick(card.childAt(36, 29), Qt::LeftButton);
    QTest::mouseClick(&card, Qt::LeftButton, {}, {120, 140});
    ASSERT_EQ(links.count(), 2);
    EXPECT_EQ(links[0][0].value<Url>(), Url{"vantel://todo?id=t-1"});
    EXPECT_EQ(links[1][0].value<Url>(), Url{"vantel://focus"});
}

void secondHalfOfADoubleClick(QWidget* widget, QPoint position) {
    const QPointF global = widget->mapToGlobal(position);
    for (const auto type : {QEvent::MouseButtonDblClick, QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, position, global, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(widget, &event);
    }
}

TEST_F(CardWidgetTest, ADoubleClickCountsOnce) {
    QWidget* circle = card.childAt(22, 29);
    QTest::mouseClick(circle, Qt::LeftButton);
    secondHalfOfADoubleClick(circle, circle->rect().center());
    EXPECT_EQ(intents.count(), 1);
    QTest::mouseClick(&card, Qt::LeftButton, {}, {120, 140});
    secondHalfOfADoubleClick(&card, {120, 140});
    EXPECT_EQ(links.count(), 1);
}

TEST_F(CardWidgetTest, APendingButtonDoesNothing) {
    card.setPending(completeFirst);
    QTest::mouseClick(card.childAt(22, 29), Qt::LeftButton);
    EXPECT_EQ(intents.count(), 0);
    QTest::mouseClick(card.childAt(22, 55), Qt::LeftButton);
    ASSERT_EQ(intents.count(), 1);
    EXPECT_EQ(intents[0][0].value<IntentCall>(), completeSecond);
}

TEST_F(CardWidgetTest, SeveralRowsArePendingAndFollowTheirTasksIntoAnotherView) {
    card.setPending(completeFirst);
    card.setPending(completeSecond);
    const QImage both = picture();
    card.setView(tasks({{completeSecond, "t-2"}, {completeFirst, "t-1"}}));
    card.setView(twoTasks());
    EXPECT_EQ(picture(), both);
    card.endPending(completeFirst);
    EXPECT_NE(picture().copy(0, 16, 170, 26), both.copy(0, 16, 170, 26));
    EXPECT_EQ(picture().copy(0, 42, 170, 26), both.copy(0, 42, 170, 26));
}

TEST_F(CardWidgetTest, ALaterMomentAloneCostsNoPaint) {
    QCoreApplication::processEvents();
    const int before = paints.count;
    WidgetView later = twoTasks();
    later.date = instantFromReference(3600);
    card.setView(later);
    QCoreApplication::processEvents();
    EXPECT_EQ(paints.count, before);
}

TEST_F(CardWidgetTest, OtherMouseButtonsDoNothing) {
    QTest::mouseClick(&card, Qt::RightButton, {}, {120, 140});
    QTest::mouseClick(card.childAt(22, 29), Qt::RightButton);
    EXPECT_EQ(links.count() + intents.count(), 0);
}

TEST_F(CardWidgetTest, APressedRowIsDrawnPendingUntilItsPressHasEnded) {
    const QImage idle = picture();
    card.setPending(completeFirst);
    const QImage pending = picture();
    EXPECT_NE(pending.copy(0, 16, 170, 26), idle.copy(0, 16, 170, 26));
    EXPECT_EQ(pending.copy(0, 42, 170, 26), idle.copy(0, 42, 170, 26));
    card.endPending(completeFirst);
    EXPECT_EQ(picture(), idle);
}

TEST_F(CardWidgetTest, AnEmptyCardDoesNotFadeToItsFirstView) {
    card.setLook(movingLook());
    const QImage expected = picture();
    card.setView(viewOf(Element{Column{}}));
    card.setView(twoTasks(), Arrival::faded);
    EXPECT_EQ(picture(), expected);
}

TEST_F(CardWidgetTest, AFadedViewAppearsThroughTheOneBeforeAndAnyOtherIsThereAtOnce) {
    card.setLook(movingLook());
    const QImage before = picture();
    card.setView(tasks({{completeSecond, "t-2"}}));
    const QImage after = picture();
    EXPECT_NE(after, before);
    card.setView(twoTasks());
    EXPECT_EQ(picture(), before);
    card.setView(tasks({{completeSecond, "t-2"}}), Arrival::faded);
    EXPECT_EQ(picture(), before);
    EXPECT_TRUE(QTest::qWaitFor([&] { return picture() == after; }));
}

TEST_F(CardWidgetTest, WithReducedMotionNothingFades) {
    card.setView(tasks({{completeSecond, "t-2"}}));
    const QImage after = picture();
    card.setView(twoTasks());
    card.setView(tasks({{completeSecond, "t-2"}}), Arrival::faded);
    EXPECT_EQ(picture(), after);
}

TEST_F(CardWidgetTest, APressDuringAFadeIsSeenWhenItHasEnded) {
    card.setLook(movingLook());
    card.setView(tasks({{completeSecond, "t-2"}}));
    card.setPending(completeSecond);
    const QImage pending = picture();
    card.endPending(completeSecond);
    card.setView(twoTasks());
    card.setView(tasks({{completeSecond, "t-2"}}), Arrival::faded);
    picture();
    card.setPending(completeSecond);
    EXPECT_TRUE(QTest::qWaitFor([&] { return picture() == pending; }));
}

TEST_F(CardWidgetTest, ADarkLookRepaintsWithoutANewLayout) {
    const QImage light = picture();
    const QWidget* area = card.findChild<scene::ActionArea*>();
    card.setLook(testLook(Appearance::darkAqua()));
    EXPECT_NE(picture(), light);
    EXPECT_EQ(card.findChild<scene::ActionArea*>(), area);
    EXPECT_EQ(picture().pixelColor(120, 140), QColor(0x1C, 0x1C, 0x1E));
}

TEST_F(CardWidgetTest, AThousandChangesOfLookKeepNothing) {
    for (int i = 0; i < 1000; ++i)
        card.setLook(testLook(i % 2 == 0 ? Appearance::darkAqua() : Appearance::aqua()));
    for (int i = 0; i < 1000; ++i)
        card.setView(i % 2 == 0 ? tasks({{completeFirst, "t-1"}}) : twoTasks());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(card.findChildren<scene::ActionArea*>().size(), 4);
}

TEST_F(CardWidgetTest, ANoticeIsShownAsPlainText) {
    card.showNotice(QStringLiteral("<b>No</b> application opens this link."));
    const QImage with = picture();
    bool isDrawn = false;
    for (int y = 110; y < 160 && !isDrawn; ++y)
        isDrawn = with.pixelColor(85, y) == QColor(0x1B, 0x1A, 0x17);
    EXPECT_TRUE(isDrawn);
}

TEST_F(CardWidgetTest, FollowsTheFontOfTheDesktop) {
    const QFont before = QApplication::font();
    Look look = testLook();
    look.standardFamily.clear();
    card.setLook(look);
    const QImage usual = picture();
    QApplication::setFont(QFont(testLook().monospacedFamily));
    QApplication::sendPostedEvents();
    EXPECT_NE(picture(), usual);
    QApplication::setFont(before);
    QApplication::sendPostedEvents();
    EXPECT_EQ(picture(), usual);
}

TEST_F(CardWidgetTest, AnotherFamilyIsSeenAtOnce) {
    const QImage usual = picture();
    Look wide = testLook();
    wide.standardFamily = wide.monospacedFamily;
    card.setLook(wide);
    EXPECT_NE(picture(), usual);
    card.setLook(testLook());
    EXPECT_EQ(picture(), usual);
}

} // namespace

} // namespace vantel
