#include "tests/host/PictureGoldens.h"

#include <QDir>
#include <QString>
#include <algorithm>
#include <cstdlib>

#include <gtest/gtest.h>

namespace vantel::testing {

namespace {

constexpr int visibleDifference = 48;
constexpr double mostDiffering = 0.004;

/// Where almost nothing of a colour is seen, its components say almost nothing, so they are weighed by it.
QImage weighed(const QImage& picture) {
    return picture.convertToFormat(QImage::Format_ARGB32)
        .convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

QRgb component(const QImage& picture, int x, int y) {
    return reinterpret_cast<const QRgb*>(picture.constScanLine(y))[x];
}

int difference(QRgb a, QRgb b) {
    return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                     std::abs(qBlue(a) - qBlue(b)), std::abs(qAlpha(a) - qAlpha(b))});
}

double differingPixels(const QImage& a, const QImage& b) {
    const QImage first = weighed(a);
    const QImage second = weighed(b);
    int count = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            count += difference(component(first, x, y), component(second, x, y)) > visibleDifference ? 1 : 0;
    return static_cast<double>(count) / (a.width() * a.height());
}

/// Keeps a picture that should have been another one, for people to look at.
std::string kept(const std::string& name, const QImage& actual) {
    const QString file = QDir::temp().filePath(QString::fromStdString("vantel-" + name + ".png"));
    return actual.save(file) ? file.toStdString() : "not kept";
}

} // namespace

GoldenMode& goldenMode() {
    static GoldenMode mode = GoldenMode::compare;
    return mode;
}

void expectPicture(const std::string& name, const QImage& actual) {
    const QString file =
        QStringLiteral(VANTEL_TEST_DATA "/golden/pictures/%1.png").arg(QString::fromStdString(name));
    if (goldenMode() == GoldenMode::rebaseline) {
        ASSERT_TRUE(actual.save(file));
        return;
    }
    const QImage golden(file);
    ASSERT_FALSE(golden.isNull()) << "There is no golden " << name << "; --rebaseline writes it.";
    ASSERT_EQ(golden.size(), actual.size()) << name;
    EXPECT_LE(differingPixels(golden, actual), mostDiffering)
        << "The golden " << name << " differs; what was drawn is " << kept(name, actual);
}

} // namespace vantel::testing
