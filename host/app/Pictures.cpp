#include "host/app/Pictures.h"

#include "host/scene/ScenePainter.h"
#include "host/surface/CardShadow.h"

#include <QCoreApplication>
#include <QDir>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QPainter>

namespace vantel {

namespace {

constexpr double gap = 24;
constexpr double deskMargin = 32;
constexpr double deskWidth = 364 + 170 + gap + 2 * deskMargin;

void addPictureFonts() {
    const QDir folder(QCoreApplication::applicationDirPath() +
                      QStringLiteral("/../share/vantel-widgets/fonts"));
    for (const QString& file : folder.entryList({QStringLiteral("*.otf"), QStringLiteral("*.ttf")}))
        QFontDatabase::addApplicationFont(folder.filePath(file));
}

struct PlacedCard {
    WidgetView view;
    QPointF corner;
};

std::vector<WidgetView> previews(const WidgetBundle& bundle, const PictureContext& context) {
    std::vector<WidgetView> views;
    const FixedClock clock(context.now);
    for (const StaticConfiguration& widget : bundle.widgets) {
        for (const WidgetFamily family : widget.supportedFamilies) {
            const TimelineEntry entry = widget.getSnapshot({clock, context.calendar, family, true});
            if (auto view = renderedView(widget, entry, {family, context.calendar, context.formats}))
                views.push_back(std::move(*view));
        }
    }
    return views;
}

/// Cards from left to right, a new line where one would not fit.
std::vector<PlacedCard> arranged(std::vector<WidgetView> views) {
    std::vector<PlacedCard> cards;
    QPointF corner(deskMargin, deskMargin);
    for (WidgetView& view : views) {
        const QSizeF size = cardSize(view.family, 1);
        if (corner.x() + size.width() > deskWidth - deskMargin)
            corner = {deskMargin, corner.y() + size.height() + gap};
        cards.push_back({std::move(view), corner});
        corner.rx() += size.width() + gap;
    }
    return cards;
}

QLinearGradient deskColors(const Appearance& appearance, const QRectF& desk) {
    const bool isDark = appearance == Appearance::darkAqua();
    QLinearGradient gradient(desk.topLeft(), desk.bottomRight());
    gradient.setColorAt(0, isDark ? QColor(0x20, 0x26, 0x2e) : QColor(0xc9, 0xd6, 0xdf));
    gradient.setColorAt(1, isDark ? QColor(0x3a, 0x30, 0x40) : QColor(0xe8, 0xdd, 0xd0));
    return gradient;
}

scene::Scene sceneOf(const WidgetView& view, const Look& look, const PictureContext& context) {
    return scene::laidOut(view, {look, context.formats, context.now, QGuiApplication::layoutDirection()});
}

void drawDesk(QPainter& painter, const QRectF& desk, const std::vector<PlacedCard>& cards,
              const Appearance& appearance, const PictureContext& context) {
    const Look look = pictureLook(appearance);
    painter.fillRect(desk, deskColors(appearance, desk));
    for (const auto& [view, corner] : cards) {
        painter.save();
        painter.translate(desk.topLeft() + corner);
        drawCardShadow(painter, QRect({0, 0}, cardSize(view.family, 1).toSize()), 1);
        scene::paint(painter, sceneOf(view, look, context), look);
        painter.restore();
    }
}

QImage emptyPicture(const QSizeF& size, double scale) {
    QImage image((size * scale).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::transparent);
    return image;
}

} // namespace

Look pictureLook(const Appearance& appearance) {
    static const bool areFontsAdded = (addPictureFonts(), true);
    Look look{.appearance = appearance};
    if (areFontsAdded) {
        look.standardFamily = QStringLiteral("Vantel Sans");
        look.monospacedFamily = QStringLiteral("Vantel Mono");
    }
    return look;
}

QImage cardPicture(const WidgetView& view, const Look& look, const PictureContext& context) {
    QImage image = emptyPicture(cardSize(view.family, 1), context.scale);
    QPainter painter(&image);
    scene::paint(painter, sceneOf(view, look, context), look);
    return image;
}

QImage galleryPicture(const WidgetBundle& bundle, const PictureContext& context) {
    const std::vector<PlacedCard> cards = arranged(previews(bundle, context));
    const double height = cards.empty() ? 0 : cards.back().corner.y() + 170 + deskMargin;
    QImage image = emptyPicture({2 * deskWidth, height}, context.scale);
    QPainter painter(&image);
    drawDesk(painter, {0, 0, deskWidth, height}, cards, Appearance::aqua(), context);
    drawDesk(painter, {deskWidth, 0, deskWidth, height}, cards, Appearance::darkAqua(), context);
    return image;
}

} // namespace vantel
