#include "host/scene/SpokenText.h"
#include "tests/host/scene/CardWidgetFixture.h"

#include <QScreen>
#include <functional>

#include <gtest/gtest.h>

namespace vantel {

namespace {

using namespace testing;

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

TEST_F(CardWidgetTest, ATickChangesTheWordsThatAreReadAndKeepsWhatReadsThem) {
    card.setView(viewOf({RelativeTime{instantFromReference(2400), {.font = {22}}}}));
    const auto* text = card.findChild<scene::SpokenText*>();
    const QString before = text->accessibleName();
    card.setNow(instantFromReference(60));
    EXPECT_EQ(card.findChild<scene::SpokenText*>(), text);
    EXPECT_NE(text->accessibleName(), before);
}

} // namespace

} // namespace vantel
