#include "host/scene/Differences.h"
#include "host/scene/ScenePainter.h"
#include "tests/host/scene/SceneFixture.h"

#include <QImage>
#include <QPainter>
#include <algorithm>

#include <gtest/gtest.h>

namespace vantel::scene {

namespace {

using namespace testing;

constexpr double end = 2400;
const TextStyle timeStyle{.font = {22}, .lineLimit = 1};

Element timeLeft() {
    return {RelativeTime{instantFromReference(end), timeStyle}};
}

/// As on one card: texts that stay are not shaped again.
Scene sceneAt(const Element& content, double seconds) {
    static ShapedTexts texts;
    static const Look look = testLook();
    return laidOut(viewOf(content), {look, plainFormats(), instantFromReference(seconds)}, texts);
}

QImage picture(const Scene& scene, double scale) {
    QImage image((scene.size * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.scale(scale, scale);
    paint(painter, scene, testLook());
    return image;
}

/// The first pixel outside the places that is different; absent where there is none.
std::optional<QPoint> strayPixel(const QImage& a, const QImage& b, const std::vector<QRectF>& places,
                                 double scale) {
    const auto isExpected = [&](QPoint pixel) {
        return std::ranges::any_of(places, [&](const QRectF& place) {
            return QRectF(place.topLeft() * scale, place.size() * scale).toAlignedRect().contains(pixel);
        });
    };
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            if (a.pixel(x, y) != b.pixel(x, y) && !isExpected({x, y}))
                return QPoint(x, y);
    return std::nullopt;
}

/// A title that gets the room which the time beside it leaves.
Element titleAndTime(const std::string& title) {
    return {Row{{oneLine(title, 13), timeLeft()}, VerticalAlignment::firstTextBaseline, 6}};
}

struct Content {
    const char* name;
    Element element;
};

const std::vector<Content>& contents() {
    static const std::vector<Content> rows{
        {"time", timeLeft()},
        {"short title", titleAndTime("Review")},
        {"cut title", titleAndTime("A meeting of the whole group, with guests")},
        {"slanted ends", titleAndTime("fjfjfjfjfjfjfjfjfjfjfjfjfj")},
        {"below each other", {Column{{oneLine("Review"), timeLeft()}, HorizontalAlignment::leading, 4}}}};
    return rows;
}

TEST(Differences, AreWhereAMinuteOfACountdownLooksDifferent) {
    for (const Content& content : contents())
        for (double seconds = 0; seconds < end; seconds += 30) {
            const Scene before = sceneAt(content.element, seconds);
            const Scene after = sceneAt(content.element, seconds + 30);
            const auto places = differences(before, after);
            ASSERT_TRUE(places) << content.name << " at " << seconds;
            for (const double scale : {1.0, 1.25, 2.0})
                EXPECT_EQ(strayPixel(picture(before, scale), picture(after, scale), *places, scale),
                          std::nullopt)
                    << content.name << " at " << seconds;
        }
}

TEST(Differences, AreNoneWhereNothingChanges) {
    for (const Content& content : contents())
        EXPECT_EQ(differences(sceneAt(content.element, 5), sceneAt(content.element, 5)),
                  std::vector<QRectF>{})
            << content.name;
}

TEST(Differences, LeaveOutWhatStaysTheSame) {
    Element column = {Column{{oneLine("Review"), timeLeft()}, HorizontalAlignment::leading, 4}};
    column.frame = {.alignment = StackAlignment::topLeading, .fill = FrameFill::both};
    const Scene before = sceneAt(column, 0);
    const auto places = differences(before, sceneAt(column, 60));
    ASSERT_TRUE(places);
    ASSERT_EQ(places->size(), 1U);
    EXPECT_FALSE(places->front().contains(before.pieces.front().rectangle));
}

TEST(Differences, MayBeEverywhereInAnotherCard) {
    const Scene scene = sceneAt(timeLeft(), 0);
    Scene larger = scene;
    larger.size *= 2;
    EXPECT_EQ(differences(scene, larger), std::nullopt);
    Scene darker = scene;
    darker.background = TokenColor{"ink", DynamicColor{0x1B1A17, 0x1B1A17}};
    EXPECT_EQ(differences(scene, darker), std::nullopt);
    Scene fuller = scene;
    fuller.pieces.push_back(fuller.pieces.front());
    EXPECT_EQ(differences(scene, fuller), std::nullopt);
}

TEST(Differences, MayBeEverywhereWhereMarksStandAboveLetters) {
    Scene before = sceneAt(text("Meeting"), 0);
    Scene after = sceneAt(text("Neeting"), 0);
    ASSERT_TRUE(differences(before, after));
    auto& line = std::get<TextPiece>(after.pieces.front().drawing).block.lines.front();
    QList<QPointF> positions = line.glyphs.front().positions();
    positions.back().ry() -= 40;
    line.glyphs.front().setPositions(positions);
    EXPECT_EQ(differences(before, after), std::nullopt);
    EXPECT_EQ(differences(after, before), std::nullopt);
}

TEST(Differences, MayBeEverywhereWhereAShapeIsTurned) {
    const auto shape = [](double width, double rotation) {
        Scene scene = sceneAt(timeLeft(), 0);
        scene.pieces.front() = {
            {0, 0, width, 10}, ShapePiece{.color = PrimaryColor{}, .rotation = rotation}, {}};
        return scene;
    };
    EXPECT_TRUE(differences(shape(10, 0), shape(12, 0)));
    EXPECT_EQ(differences(shape(10, 0), shape(10, 45)), std::nullopt);
    EXPECT_EQ(differences(shape(10, 45), shape(12, 45)), std::nullopt);
    EXPECT_EQ(differences(shape(10, 45), shape(10, 45)), std::vector<QRectF>{});
}

} // namespace

} // namespace vantel::scene
