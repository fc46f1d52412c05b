#include "host/surface/CardWindow.h"
#include "host/surface/PlainWindowSystem.h"
#include "tests/fakes/FakeFormats.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPushButton>
#include <QWindow>

#include <gmock/gmock.h>

namespace vantel::testing {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

/// Remembers why the focus came last.
class FocusReasons final : public QObject {
public:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::FocusIn)
            m_reasons.push_back(static_cast<QFocusEvent*>(event)->reason());
        return false;
    }

    const std::vector<Qt::FocusReason>& all() const { return m_reasons; }

private:
    std::vector<Qt::FocusReason> m_reasons;
};

struct CardWindowTest : ::testing::Test {
    PlainFormats formats;
    PlainWindowSystem windows;
    QWidget* card = new QWidget;
    QPushButton* circle = new QPushButton(card);
    int presses = 0;
    std::vector<QPoint> drags;
    int drops = 0;
    std::unique_ptr<CardWindow> window;

    CardWindowTest() {
        card->setFixedSize(170, 170);
        circle->setGeometry(10, 20, 40, 30);
        window = std::make_unique<CardWindow>(card, 1, windows, formats);
        window->showCard(nullptr, QPoint(100, 80));
        QObject::connect(circle, &QPushButton::clicked, [this] { ++presses; });
        QObject::connect(window.get(), &CardWindow::dragged,
                         [this](QPoint place) { drags.push_back(place); });
        QObject::connect(window.get(), &CardWindow::dropped, [this] { ++drops; });
    }

    /// An event of the left button at a point of the card.
    void mouse(QEvent::Type type, QPoint point, Qt::MouseButton button = Qt::LeftButton) const {
        const QPointF local = point + QPoint(24, 24);
        const QPointF global = window->mapToGlobal(local);
        const bool isDown = type != QEvent::MouseButtonRelease;
        QMouseEvent event(type, local, local, global, type == QEvent::MouseMove ? Qt::NoButton : button,
                          isDown ? button : Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(window->windowHandle(), &event);
    }

    /// A key as it comes from the window system, which knows nothing of what has the focus in the window.
    void key(Qt::Key key) const {
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, Qt::NoModifier);
            QCoreApplication::sendEvent(window->windowHandle(), &event);
        }
    }

    QMenu* menu() const { return window->findChild<QMenu*>(); }
};

TEST_F(CardWindowTest, StandsAroundItsCardInWholePixelsOfAnyScale) {
    EXPECT_EQ(window->geometry(), QRect(76, 56, 220, 220));
    EXPECT_EQ(window->cardGeometry(), QRect(100, 80, 170, 170));
    EXPECT_TRUE(window->isVisible());
}

TEST_F(CardWindowTest, FollowsTheSizeOfItsCard) {
    int resized = 0;
    QObject::connect(window.get(), &CardWindow::cardResized, [&] { ++resized; });
    card->setFixedSize(364, 170);
    EXPECT_EQ(window->cardGeometry(), QRect(100, 80, 364, 170));
    EXPECT_EQ(window->width(), 412);
    EXPECT_EQ(resized, 1);
}

TEST_F(CardWindowTest, AScaleWidensTheShadowAndLeavesTheCard) {
    window->setScale(1.5);
    EXPECT_EQ(window->cardGeometry(), QRect(100, 80, 170, 170));
    EXPECT_EQ(window->width(), 170 + 2 * 36 + 2);
}

TEST_F(CardWindowTest, AClickReachesWhatItHits) {
    mouse(QEvent::MouseButtonPress, {20, 30});
    mouse(QEvent::MouseButtonRelease, {20, 30});
    EXPECT_EQ(presses, 1);
    EXPECT_THAT(drags, IsEmpty());
    EXPECT_EQ(drops, 0);
}

TEST_F(CardWindowTest, ATremblingHandStillClicks) {
    mouse(QEvent::MouseButtonPress, {20, 30});
    mouse(QEvent::MouseMove, {20 + QApplication::startDragDistance() - 1, 30});
    mouse(QEvent::MouseButtonRelease, {20 + QApplication::startDragDistance() - 1, 30});
    EXPECT_EQ(presses, 1);
    EXPECT_THAT(drags, IsEmpty());
}

TEST_F(CardWindowTest, ADragThatBeginsOnAButtonMovesTheCardAndPressesNothing) {
    mouse(QEvent::MouseButtonPress, {20, 30});
    EXPECT_TRUE(circle->isDown());
    mouse(QEvent::MouseMove, {30, 45});
    EXPECT_FALSE(circle->isDown());
    mouse(QEvent::MouseMove, {20, 30});
    mouse(QEvent::MouseButtonRelease, {20, 30});
    EXPECT_EQ(presses, 0);
    EXPECT_THAT(drags, ElementsAre(QPoint(110, 95), QPoint(100, 80)));
    EXPECT_EQ(drops, 1);
}

TEST_F(CardWindowTest, AClickAfterADragIsAClickAgain) {
    mouse(QEvent::MouseButtonPress, {100, 100});
    mouse(QEvent::MouseMove, {130, 130});
    mouse(QEvent::MouseButtonRelease, {130, 130});
    mouse(QEvent::MouseButtonPress, {20, 30});
    mouse(QEvent::MouseButtonRelease, {20, 30});
    EXPECT_EQ(presses, 1);
    EXPECT_EQ(drops, 1);
}

TEST_F(CardWindowTest, ADragWhoseEndWentElsewhereEndsWithTheNextMove) {
    mouse(QEvent::MouseButtonPress, {100, 100});
    mouse(QEvent::MouseMove, {130, 130});
    mouse(QEvent::MouseMove, {140, 140}, Qt::NoButton);
    mouse(QEvent::MouseMove, {160, 160}, Qt::NoButton);
    EXPECT_THAT(drags, SizeIs(1));
    EXPECT_EQ(drops, 1);
    mouse(QEvent::MouseButtonPress, {20, 30});
    mouse(QEvent::MouseButtonRelease, {20, 30});
    EXPECT_EQ(presses, 1);
}

TEST_F(CardWindowTest, AnotherButtonDuringADragReachesNothing) {
    mouse(QEvent::MouseButtonPress, {100, 100});
    mouse(QEvent::MouseMove, {130, 130});
    mouse(QEvent::MouseButtonPress, {20, 30}, Qt::RightButton);
    mouse(QEvent::MouseButtonRelease, {20, 30}, Qt::RightButton);
    EXPECT_EQ(menu(), nullptr);
    EXPECT_EQ(drops, 0);
    mouse(QEvent::MouseButtonRelease, {130, 130});
    EXPECT_EQ(drops, 1);
}

TEST_F(CardWindowTest, TheOtherButtonsDragNothing) {
    mouse(QEvent::MouseButtonPress, {100, 100}, Qt::MiddleButton);
    mouse(QEvent::MouseMove, {150, 150}, Qt::MiddleButton);
    mouse(QEvent::MouseButtonRelease, {150, 150}, Qt::MiddleButton);
    EXPECT_THAT(drags, IsEmpty());
}

TEST_F(CardWindowTest, OpensItsMenuWhereverTheCardIsClicked) {
    window->setFamilies(
        {{WidgetFamily::systemSmall, WidgetFamily::systemMedium}, WidgetFamily::systemMedium});
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5), circle->mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(circle, &event);
    ASSERT_NE(menu(), nullptr);
    EXPECT_TRUE(menu()->isVisible());
    EXPECT_EQ(menu()->actions().front()->text(), QStringLiteral("Small"));
}

TEST_F(CardWindowTest, TheMenuKeyOpensTheMenuToo) {
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(0, 0), QPoint(0, 0));
    QCoreApplication::sendEvent(card, &event);
    ASSERT_NE(menu(), nullptr);
    menu()->close();
}

TEST_F(CardWindowTest, TheMenuOffersTheKeyboard) {
    window->openMenu(QPoint(40, 40));
    EXPECT_EQ(menu()->actions().front()->text(), QStringLiteral("Use with the keyboard"));
}

TEST_F(CardWindowTest, TheMenuDoesNotOfferTheKeyboardWhereItIsAlready) {
    window->takeFocus();
    QCoreApplication::processEvents();
    window->openMenu(QPoint(40, 40));
    EXPECT_EQ(menu()->actions().front()->text(), QStringLiteral("Reload"));
}

TEST_F(CardWindowTest, TheKeyboardComesToTheFirstStopAndEscapeGivesItBack) {
    window->takeFocus();
    EXPECT_TRUE(window->hasTakenFocus());
    EXPECT_EQ(window->focusWidget(), circle);
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QCoreApplication::sendEvent(circle, &escape);
    EXPECT_FALSE(window->hasTakenFocus());
}

TEST_F(CardWindowTest, KeysPressWhatHasTheFocusUntilEscape) {
    window->takeFocus();
    QCoreApplication::processEvents();
    key(Qt::Key_Space);
    EXPECT_EQ(presses, 1);
    key(Qt::Key_Escape);
    EXPECT_EQ(window->focusWidget(), nullptr);
    key(Qt::Key_Space);
    key(Qt::Key_Tab);
    key(Qt::Key_Space);
    EXPECT_EQ(presses, 1);
}

TEST_F(CardWindowTest, TheFirstStopHearsThatTheFocusCameByKeys) {
    FocusReasons reasons;
    circle->installEventFilter(&reasons);
    window->takeFocus();
    QCoreApplication::processEvents();
    EXPECT_THAT(reasons.all(), ElementsAre(Qt::TabFocusReason));
}

TEST_F(CardWindowTest, AStopThatHasTheFocusAlreadyHearsItAnew) {
    window->activateWindow();
    QCoreApplication::processEvents();
    circle->setFocus(Qt::OtherFocusReason);
    FocusReasons reasons;
    circle->installEventFilter(&reasons);
    window->takeFocus();
    QCoreApplication::processEvents();
    EXPECT_THAT(reasons.all(), ElementsAre(Qt::TabFocusReason));
}

TEST_F(CardWindowTest, KeysThatNobodyBroughtPressNothing) {
    window->activateWindow();
    QCoreApplication::processEvents();
    circle->setFocus();
    key(Qt::Key_Space);
    EXPECT_EQ(presses, 0);
}

TEST_F(CardWindowTest, AClosedWindowComesBack) {
    window->close();
    EXPECT_FALSE(window->isVisible());
    QCoreApplication::processEvents();
    EXPECT_TRUE(window->isVisible());
}

TEST_F(CardWindowTest, HasNoShadowWhereNothingBlendsWindows) {
    const auto besideTheCard = [this] { return qAlpha(window->grab().toImage().pixel(109, 200)); };
    EXPECT_GT(besideTheCard(), 0);
    windows.setBlending(Blending::none);
    EXPECT_EQ(besideTheCard(), 0);
}

} // namespace

} // namespace vantel::testing
