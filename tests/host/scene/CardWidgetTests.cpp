#include "host/scene/ActionArea.h"
#include "host/scene/CardWidget.h"
#include "host/scene/SpokenText.h"
#include "tests/host/scene/SceneFixture.h"

#include <QAccessible>
#include <QApplication>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>
#include <functional>

#include <gtest/gtest.h>

namespace vantel {

namespace {

using namespace testing;

const IntentCall completeFirst{"CompleteTodoIntent", {{"todoID", "t-1"}, {"accountID", "a"}}};
const IntentCall completeSecond{"CompleteTodoIntent", {{"todoID", "t-2"}, {"accountID", "a"}}};

Element taskRow(const IntentCall& intent, const std::string& id) {
    Element circle = {Button{intent, Element{Symbol{.name = "circle", .size = 12}}}};
    circle.accessibilityLabel = "Complete: " + id;
    const TextStyle style{.font = {11}, .lineLimit = 1, .invalidatable = true};
    const Element link = {Link{Url{"vantel://todo?id=" + id}, Element{Text{id, style}}}};
    Element row = {Row{{circle, link}, VerticalAlignment::center, 6}};
    row.frame = {.height = 26, .alignment = StackAlignment::leading};
    return row;
}

WidgetView tasks(std::vector<std::pair<IntentCall, std::string>> rows) {
    std::vector<Element> elements;
    for (const auto& [intent, id] : rows)
        elements.push_back(taskRow(intent, id));
    Element column = {Column{std::move(elements), HorizontalAlignment::leading, 0}};
    column.frame = {.alignment = StackAlignment::topLeading, .fill = FrameFill::both};
    WidgetView view = viewOf(column);
    view.content.widgetURL = Url{"vantel://focus"};
    return view;
}

WidgetView twoTasks() {
    return tasks({{completeFirst, "t-1"}, {completeSecond, "t-2"}});
}

Look movingLook() {
    Look look = testLook();
    look.motion = Motion::full;
    return look;
}

class CardWidgetTest : public ::testing::Test {
protected:
    CardWidgetTest() {
        card.setLook(testLook());
        card.setView(twoTasks());
        card.show();
        EXPECT_TRUE(QTest::qWaitFor([this] { return paints.count > 0; }));
    }

    QImage picture() {
        QImage image(card.size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        card.render(&image, {}, {}, QWidget::DrawChildren);
        return image;
    }

    struct PaintCounter : QObject {
        int count = 0;
        QRegion last;
        bool eventFilter(QObject*, QEvent* event) override {
            if (event->type() == QEvent::Paint) {
                ++count;
                last = static_cast<QPaintEvent*>(event)->region();
            }
            return false;
        }
    };

    CardWidget card{plainFormats()};
    PaintCounter paints;
    QSignalSpy links{&card, &CardWidget::linkActivated};
    QSignalSpy intents{&card, &CardWidget::intentPressed};

private:
    bool m_isWatched = (card.installEventFilter(&paints), true);
};

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

TEST_F(CardWidgetTest, TheKeyboardFocusStaysWhileTheCardSaysTheSame) {
    card.activateWindow();
    card.focusFirst();
    QWidget* focused = QApplication::focusWidget();
    WidgetView same = twoTasks();
    same.content.background = TokenColor{"ink", DynamicColor{0x1B1A17, 0x1B1A17}};
    card.setView(same);
    EXPECT_EQ(QApplication::focusWidget(), focused);
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

TEST_F(CardWidgetTest, AMinuteOfACountdownRepaintsTheTimeAlone) {
    const auto painted = [this](const auto& change) {
        const int before = paints.count;
        change();
        EXPECT_TRUE(QTest::qWaitFor([&] { return paints.count > before; }));
        return paints.last;
    };
    const auto minute = [this](double seconds) {
        return [this, seconds] { card.setNow(instantFromReference(seconds)); };
    };
    const QRegion everything = card.rect();
    EXPECT_EQ(
        painted([this] { card.setView(viewOf({RelativeTime{instantFromReference(2400), {.font = {10}}}})); }),
        everything);
    painted(minute(60)); // The links of the view before go only now.
    const QRegion time = painted(minute(120));
    EXPECT_TRUE(time.contains(QPoint(85, 85)));
    EXPECT_FALSE(time.intersects(QRect(0, 0, 170, 40)));
    EXPECT_EQ(painted([this, &minute] {
                  card.setLook(testLook(Appearance::darkAqua()));
                  minute(180)();
              }),
              everything);
}

class CountdownTest : public CardWidgetTest {
protected:
    CountdownTest() {
        card.setParent(&window);
        window.resize(400, 400);
        card.show();
        window.show();
    }
    ~CountdownTest() override { card.setParent(nullptr); }

    QImage seen() { return window.screen()->grabWindow(window.winId()).toImage(); }

    void setScale(double scale) {
        Look look = testLook();
        look.scale = scale;
        card.setLook(look);
    }

    /// A fade that is under way when the first minute is over.
    void fade() {
        card.setLook(movingLook());
        card.setView(twoTasks());
    }

    void countDown() {
        const Element time = {RelativeTime{instantFromReference(2400),
                                           {.font = {.size = 22, .design = FontDesign::monospaced}}}};
        const Element title = oneLine("Review of the manuscript", 13);
        card.setView(viewOf({Column{{title, time}, HorizontalAlignment::leading, 4}}), Arrival::faded);
        for (const double seconds : {0, 60, 120, 180, 240}) { // all as wide
            QTest::qWait(5);
            card.setNow(instantFromReference(seconds));
        }
        QTest::qWait(5);
    }

    QWidget window;
};

TEST_F(CountdownTest, LeavesNothingBehind) {
    struct Row {
        const char* name;
        std::function<void()> enter;
    };
    const std::vector<Row> rows{
        {"plain", [] {}},
        {"scaled", [this] { setScale(1.25); }},
        {"large", [this] { setScale(2); }},
        {"mirrored", [this] { card.setLayoutDirection(Qt::RightToLeft); }},
        {"dark", [this] { card.setLook(testLook(Appearance::darkAqua())); }},
        {"under a notice", [this] { card.showNotice(QStringLiteral("No application opens it.")); }},
        {"with a ring", [this] { card.focusFirst(); }},
        {"while it fades", [this] { fade(); }}};
    for (const Row& row : rows) {
        card.setNow(instantFromReference(0));
        row.enter();
        countDown();
        QTest::qWait(250); // longer than a fade
        const QImage left = seen();
        window.repaint();
        EXPECT_EQ(left, seen()) << row.name;
    }
}

TEST_F(CardWidgetTest, ACountdownTellsWhenItReadsDifferently) {
    EXPECT_EQ(card.nextTick(instantFromReference(0)), std::nullopt);
    card.setView(viewOf({RelativeTime{instantFromReference(2400), {.font = {22}}}}));
    EXPECT_EQ(card.nextTick(instantFromReference(1)), instantFromReference(60));
    const QImage before = picture();
    card.setNow(instantFromReference(60));
    EXPECT_NE(picture(), before);
}

TEST_F(CardWidgetTest, AfterATickACardLooksAsIfItHadBegunThen) {
    const auto lines = [] {
        return viewOf({Column{{text("Plan"), {RelativeTime{instantFromReference(2400), {.font = {22}}}}}}});
    };
    card.setView(lines());
    card.setNow(instantFromReference(60));
    const QImage ticked = picture();
    card.setView(twoTasks());
    card.setView(lines());
    EXPECT_EQ(picture(), ticked);
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

TEST_F(CardWidgetTest, ATickChangesTheWordsThatAreReadAndKeepsWhatReadsThem) {
    card.setView(viewOf({RelativeTime{instantFromReference(2400), {.font = {22}}}}));
    const auto* text = card.findChild<scene::SpokenText*>();
    const QString before = text->accessibleName();
    card.setNow(instantFromReference(60));
    EXPECT_EQ(card.findChild<scene::SpokenText*>(), text);
    EXPECT_NE(text->accessibleName(), before);
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
