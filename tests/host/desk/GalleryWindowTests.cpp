#include "host/desk/GalleryTile.h"
#include "host/desk/GalleryWindow.h"
#include "host/scene/Look.h"
#include "tests/fakes/FakeFormats.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>

#include <gmock/gmock.h>

namespace vantel::testing {

using namespace Qt::StringLiterals;

namespace {

using ::testing::ElementsAre;

constexpr WidgetFamily small = WidgetFamily::systemSmall;
constexpr WidgetFamily medium = WidgetFamily::systemMedium;

WidgetBundle twoWidgets() {
    StaticConfiguration focus;
    focus.kind = "A";
    focus.displayName = "Focus";
    focus.description = "What is <b>due</b>";
    focus.supportedFamilies = {small, medium};
    StaticConfiguration triage = focus;
    triage.kind = "B";
    triage.displayName = "Triage";
    triage.supportedFamilies = {small};
    return {{focus, triage}, {}};
}

QWidget* preview(WidgetFamily family) {
    auto* card = new QWidget;
    card->setFixedSize(cardSize(family, 1).toSize());
    new QPushButton(card);
    return card;
}

struct GalleryWindowTest : ::testing::Test {
    WidgetBundle bundle = twoWidgets();
    PlainFormats formats;
    GalleryWindow gallery{bundle, formats,
                          [](const StaticConfiguration&, WidgetFamily family) { return preview(family); }};
    std::vector<std::pair<std::string, WidgetFamily>> chosen;

    GalleryWindowTest() {
        QObject::connect(
            &gallery, &GalleryWindow::chosen,
            [this](const std::string& kind, WidgetFamily family) { chosen.emplace_back(kind, family); });
        gallery.show();
        gallery.activateWindow();
        QCoreApplication::processEvents();
    }

    QList<GalleryTile*> tiles() const { return gallery.findChildren<GalleryTile*>(); }

    static void press(QWidget* widget, int key) {
        QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier);
        QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier);
        QCoreApplication::sendEvent(widget, &down);
        QCoreApplication::sendEvent(widget, &up);
    }

    std::vector<std::string> texts() const {
        std::vector<std::string> found;
        for (const QLabel* label : gallery.findChildren<QLabel*>())
            found.push_back(label->text().toStdString());
        return found;
    }
};

TEST_F(GalleryWindowTest, ShowsNamesDescriptionsAndSizesAsPlainText) {
    EXPECT_THAT(texts(), ElementsAre("Add widgets", "Choose one to put it on the desktop.", "Focus",
                                     "What is <b>due</b>", "Small", "Medium", "Triage", "What is <b>due</b>",
                                     "Small", ""));
    for (const QLabel* label : gallery.findChildren<QLabel*>())
        EXPECT_EQ(label->textFormat(), Qt::PlainText);
}

TEST_F(GalleryWindowTest, HasOneButtonForEachSizeWithANameThatSaysIt) {
    std::vector<std::string> names;
    for (const GalleryTile* tile : tiles())
        names.push_back(tile->accessibleName().toStdString());
    EXPECT_THAT(names, ElementsAre("Focus, Small", "Focus, Medium", "Triage, Small"));
}

TEST_F(GalleryWindowTest, AClickChooses) {
    tiles()[1]->click();
    EXPECT_THAT(chosen, ElementsAre(std::pair(std::string("A"), medium)));
}

TEST_F(GalleryWindowTest, WhatWasChosenIsSaidBelowWhatScrolls) {
    gallery.findChild<QScrollArea*>()->verticalScrollBar()->setValue(10'000);
    tiles()[2]->click();
    const auto labels = gallery.findChildren<QLabel*>();
    const auto said = std::ranges::find(labels, u"Triage is now on the desktop."_s, &QLabel::text);
    ASSERT_NE(said, labels.end());
    QCoreApplication::processEvents();
    EXPECT_TRUE((*said)->isVisible());
    EXPECT_EQ((*said)->visibleRegion().boundingRect(), (*said)->rect());
    EXPECT_FALSE(gallery.findChild<QScrollArea*>()->isAncestorOf(*said));
}

TEST_F(GalleryWindowTest, NothingHasToBeScrolledSideways) {
    EXPECT_FALSE(gallery.findChild<QScrollArea*>()->horizontalScrollBar()->isVisible());
}

TEST_F(GalleryWindowTest, EnterAndSpaceChoose) {
    press(tiles()[0], Qt::Key_Return);
    press(tiles()[2], Qt::Key_Space);
    EXPECT_THAT(chosen, ElementsAre(std::pair(std::string("A"), small), std::pair(std::string("B"), small)));
}

TEST_F(GalleryWindowTest, TheKeyboardWalksTheTilesAndNothingInThem) {
    tiles()[0]->setFocus();
    std::vector<QWidget*> visited;
    for (int i = 0; i < 3; ++i) {
        visited.push_back(gallery.focusWidget());
        press(gallery.focusWidget(), i == 0 ? Qt::Key_Right : Qt::Key_Down);
    }
    EXPECT_THAT(visited, ElementsAre(tiles()[0], tiles()[1], tiles()[2]));
    EXPECT_EQ(gallery.focusWidget(), tiles()[0]);
    press(gallery.focusWidget(), Qt::Key_Left);
    EXPECT_EQ(gallery.focusWidget(), tiles()[2]);
}

TEST_F(GalleryWindowTest, ArrowsGoWhereTheyPointInEitherDirection) {
    struct Row {
        Qt::LayoutDirection direction;
        Qt::Key key;
        int reached; ///< from the second of three tiles
    };
    for (const Row& row : {Row{Qt::LeftToRight, Qt::Key_Right, 2}, Row{Qt::LeftToRight, Qt::Key_Left, 0},
                           Row{Qt::RightToLeft, Qt::Key_Right, 0}, Row{Qt::RightToLeft, Qt::Key_Left, 2},
                           Row{Qt::RightToLeft, Qt::Key_Down, 2}, Row{Qt::RightToLeft, Qt::Key_Up, 0}}) {
        gallery.setLayoutDirection(row.direction);
        tiles()[1]->setFocus();
        press(tiles()[1], row.key);
        EXPECT_EQ(gallery.focusWidget(), tiles()[row.reached]) << row.direction << " " << row.key;
    }
}

TEST_F(GalleryWindowTest, TheFocusIsSeen) {
    tiles()[0]->clearFocus();
    const QImage before = tiles()[0]->grab().toImage();
    tiles()[0]->setFocus();
    EXPECT_NE(tiles()[0]->grab().toImage(), before);
}

TEST_F(GalleryWindowTest, WhatIsScrolledAwayFromThePointerIsMarkedNoMore) {
    gallery.resize(gallery.width(), 300);
    QCursor::setPos(tiles()[0]->mapToGlobal(tiles()[0]->rect().center()));
    QCoreApplication::processEvents();
    ASSERT_TRUE(tiles()[0]->underMouse());
    const int distance = tiles()[0]->height();
    gallery.findChild<QScrollArea*>()->verticalScrollBar()->setValue(distance);
    EXPECT_FALSE(tiles()[0]->underMouse());
    gallery.findChild<QScrollArea*>()->verticalScrollBar()->setValue(0);
    EXPECT_TRUE(tiles()[0]->underMouse());
}

TEST_F(GalleryWindowTest, EscapeCloses) {
    press(tiles()[0], Qt::Key_Escape);
    EXPECT_FALSE(gallery.isVisible());
}

TEST_F(GalleryWindowTest, QuietTextsFollowThePalette) {
    QPalette dark;
    dark.setColor(QPalette::WindowText, Qt::white);
    gallery.setPalette(dark);
    const QColor color = gallery.findChildren<QLabel*>()[1]->palette().color(QPalette::WindowText);
    EXPECT_EQ(color.red(), 255);
    EXPECT_LT(color.alpha(), 255);
}

} // namespace

} // namespace vantel::testing
