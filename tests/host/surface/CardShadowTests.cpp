#include "host/surface/CardShadow.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

namespace vantel {

namespace {

constexpr QRect card(24, 24, 364, 170);

QImage drawn(double scale, double pixelRatio) {
    QImage image(QSize(412, 218) * pixelRatio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(pixelRatio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    drawCardShadow(painter, card, scale);
    return image;
}

int alpha(const QImage& image, int x, int y) {
    return qAlpha(image.pixel(x, y));
}

TEST(CardShadow, FadesOutWithinItsReach) {
    const QImage image = drawn(1, 1);
    EXPECT_EQ(alpha(image, 0, 0), 0);
    EXPECT_LE(alpha(image, 0, 109), 2);
    EXPECT_LE(alpha(image, 206, 217), 2);
    EXPECT_GT(alpha(image, 206, 196), alpha(image, 206, 206));
    EXPECT_GT(alpha(image, 206, 206), alpha(image, 206, 214));
}

TEST(CardShadow, FallsDownwards) {
    const QImage image = drawn(1, 1);
    EXPECT_GT(alpha(image, 206, 200), alpha(image, 206, 17) + 5);
}

TEST(CardShadow, IsTheSameFromLeftAndRightAndAlongItsEdges) {
    const QImage image = drawn(1, 1);
    for (int y = 0; y < image.height(); ++y)
        EXPECT_NEAR(alpha(image, 18, y), alpha(image, 411 - 18, y), 1) << y;
    EXPECT_EQ(alpha(image, 150, 200), alpha(image, 250, 200));
}

TEST(CardShadow, IsAsWideOnFinerScreens) {
    const QImage coarse = drawn(1, 1);
    const QImage fine = drawn(1, 2);
    for (const QPoint point : {QPoint(206, 200), QPoint(12, 109), QPoint(30, 198)})
        EXPECT_NEAR(alpha(coarse, point.x(), point.y()), alpha(fine, 2 * point.x(), 2 * point.y()), 3);
}

TEST(CardShadow, GrowsWithTheScale) {
    EXPECT_EQ(shadowReach(1), 24);
    EXPECT_EQ(shadowReach(1.25), 30);
    const QImage image = drawn(2, 1);
    EXPECT_GT(alpha(image, 206, 0), alpha(drawn(1, 1), 206, 0));
}

} // namespace

} // namespace vantel
