#include "host/scene/CardWidget.h"
#include "host/surface/CardWindow.h"
#include "host/surface/PlainWindowSystem.h"
#include "tests/host/scene/SceneFixture.h"

#include <QAbstractButton>
#include <QApplication>
#include <QTest>

#include <gtest/gtest.h>

namespace vantel::testing {

namespace {

/// A card with a link, in its window on the desktop.
struct FocusRingTest : ::testing::Test {
    PlainWindowSystem windows;
    CardWidget* card = new CardWidget(plainFormats());
    std::unique_ptr<CardWindow> window;
    QWidget elsewhere;
    QImage bare; ///< without a ring

    FocusRingTest() {
        card->setLook(testLook());
        card->setView(viewOf({Link{Url{"vantel://focus"}, oneLine("Focus")}}));
        window = std::make_unique<CardWindow>(card, 1, windows, plainFormats());
        QObject::connect(window.get(), &CardWindow::focusTaken, card, &CardWidget::focusFirst);
        window->showCard(nullptr, QPoint(100, 80));
        elsewhere.show();
        activate(elsewhere);
        bare = picture();
    }

    static void activate(QWidget& other) {
        other.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&other));
    }

    QImage picture() const {
        QCoreApplication::processEvents();
        QImage image(card->size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        card->render(&image, {}, {}, QWidget::DrawChildren);
        return image;
    }

    void openMenu() const {
        window->openMenu(QPoint(60, 60));
        EXPECT_TRUE(QTest::qWaitFor([] { return QApplication::activePopupWidget() != nullptr; }));
    }

    static void escapeMenu() {
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    }
};

TEST_F(FocusRingTest, IsThereWhileTheKeyboardIsAndGoesWithEscape) {
    window->takeFocus();
    EXPECT_NE(picture(), bare);
    QTest::keyClick(window->focusWidget(), Qt::Key_Escape);
    EXPECT_EQ(picture(), bare);
}

TEST_F(FocusRingTest, IsNotLeftByAMenuThatIsClosed) {
    for (QWidget* active : {&elsewhere, static_cast<QWidget*>(window.get())}) {
        activate(*active);
        openMenu();
        escapeMenu();
        EXPECT_EQ(picture(), bare);
    }
}

TEST_F(FocusRingTest, IsNotLeftByAMenuOverALinkThatWasClicked) {
    activate(*window);
    QTest::mouseClick(card->findChild<QAbstractButton*>(), Qt::LeftButton);
    card->findChild<QAbstractButton*>()->setFocus(Qt::OtherFocusReason);
    openMenu();
    escapeMenu();
    EXPECT_EQ(picture(), bare);
}

TEST_F(FocusRingTest, DoesNotComeBackAfterTheKeyboardLeftWhileTheMenuWasOpen) {
    window->takeFocus();
    activate(*window);
    openMenu();
    activate(elsewhere);
    escapeMenu();
    EXPECT_EQ(picture(), bare);
    activate(*window);
    EXPECT_EQ(picture(), bare);
    openMenu();
    escapeMenu();
    EXPECT_EQ(picture(), bare);
}

TEST_F(FocusRingTest, DoesNotComeBackAfterTheKeyboardWasGivenBackInTheMenu) {
    window->takeFocus();
    activate(*window);
    openMenu();
    window->giveFocusBack();
    escapeMenu();
    EXPECT_EQ(picture(), bare);
    openMenu();
    escapeMenu();
    EXPECT_EQ(picture(), bare);
}

} // namespace

} // namespace vantel::testing
