#include "tests/host/scene/CardWidgetFixture.h"

#include <QAccessible>
#include <QApplication>

#include <gtest/gtest.h>

namespace vantel {

namespace {

using namespace testing;

TEST_F(CardWidgetTest, TabWalksCirclesAndLinksInReadingOrder) {
    std::vector<QString> visited;
    card.activateWindow();
    card.focusFirst();
    for (int i = 0; i < 4; ++i) {
        visited.push_back(QApplication::focusWidget()->accessibleName());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    const auto literal = [](const char* words) { return QString::fromUtf8(words); };
    EXPECT_EQ(visited, (std::vector{literal("Complete: t-1"), literal("t-1"), literal("Complete: t-2"),
                                    literal("t-2")}));
}

TEST_F(CardWidgetTest, EnterAndSpacePressWhatHasTheFocus) {
    card.activateWindow();
    card.focusFirst();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space})
        QTest::keyClick(QApplication::focusWidget(), key);
    EXPECT_EQ(intents.count(), 3);
}

TEST_F(CardWidgetTest, TheKeyboardFocusStaysWhileTheCardSaysTheSame) {
    card.activateWindow();
    card.focusFirst();
    QWidget* focused = QApplication::focusWidget();
    WidgetView same = twoTasks();
    same.content.background = TokenColor{"ink", DynamicColor{0x1B1A17, 0x1B1A17}};
    card.setView(same);
    EXPECT_EQ(QApplication::focusWidget(), focused);
}

TEST_F(CardWidgetTest, EveryLinkButtonAndTextHasARoleANameAndAnAction) {
    QAccessibleInterface* button = QAccessible::queryAccessibleInterface(card.childAt(22, 29));
    QAccessibleInterface* link = QAccessible::queryAccessibleInterface(card.childAt(36, 29));
    ASSERT_NE(button, nullptr);
    ASSERT_NE(link, nullptr);
    EXPECT_EQ(button->role(), QAccessible::Button);
    EXPECT_EQ(link->role(), QAccessible::Link);
    EXPECT_EQ(button->text(QAccessible::Name), QStringLiteral("Complete: t-1"));
    button->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(intents.count(), 1);
}

TEST_F(CardWidgetTest, TheCardItselfIsPressedLikeALinkAndHoldsTheOthers) {
    QAccessibleInterface* whole = QAccessible::queryAccessibleInterface(&card);
    ASSERT_NE(whole, nullptr);
    EXPECT_EQ(whole->role(), QAccessible::Grouping);
    whole->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    ASSERT_EQ(links.count(), 1);
    EXPECT_EQ(links.front().front().value<Url>(), Url{"vantel://focus"});
}

void activate(QWidget& window) {
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
}

TEST_F(CardWidgetTest, ACardThatIsAskedInShowsWhereTheKeyboardIs) {
    QWidget other;
    other.show();
    activate(other);
    const QImage idle = picture();
    card.focusFirst();
    EXPECT_EQ(picture(), idle);
    activate(card);
    EXPECT_NE(picture(), idle);
    activate(other);
    EXPECT_EQ(picture(), idle);
    activate(card);
    EXPECT_EQ(picture(), idle) << "a click may make the window active";
}

} // namespace

} // namespace vantel
