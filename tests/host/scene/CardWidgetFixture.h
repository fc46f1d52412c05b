#pragma once

#include "host/scene/CardWidget.h"
#include "tests/host/scene/SceneFixture.h"

#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace vantel::testing {

inline const IntentCall completeFirst{"CompleteTodoIntent", {{"todoID", "t-1"}, {"accountID", "a"}}};
inline const IntentCall completeSecond{"CompleteTodoIntent", {{"todoID", "t-2"}, {"accountID", "a"}}};

inline Element taskRow(const IntentCall& intent, const std::string& id) {
    Element circle = {Button{intent, Element{Symbol{.name = "circle", .size = 12}}}};
    circle.accessibilityLabel = "Complete: " + id;
    const TextStyle style{.font = {11}, .lineLimit = 1, .invalidatable = true};
    const Element link = {Link{Url{"vantel://todo?id=" + id}, Element{Text{id, style}}}};
    Element row = {Row{{circle, link}, VerticalAlignment::center, 6}};
    row.frame = {.height = 26, .alignment = StackAlignment::leading};
    return row;
}

inline WidgetView tasks(std::vector<std::pair<IntentCall, std::string>> rows) {
    std::vector<Element> elements;
    for (const auto& [intent, id] : rows)
        elements.push_back(taskRow(intent, id));
    Element column = {Column{std::move(elements), HorizontalAlignment::leading, 0}};
    column.frame = {.alignment = StackAlignment::topLeading, .fill = FrameFill::both};
    WidgetView view = viewOf(column);
    view.content.widgetURL = Url{"vantel://focus"};
    return view;
}

inline WidgetView twoTasks() {
    return tasks({{completeFirst, "t-1"}, {completeSecond, "t-2"}});
}

inline Look movingLook() {
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

} // namespace vantel::testing
