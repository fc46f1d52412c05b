#pragma once

#include "host/scene/Scene.h"
#include "tests/widgets/WidgetFixture.h"

#include <QFontDatabase>

namespace vantel::testing {

/// Fonts that lie in the project, so that texts are as wide on every machine.
inline Look testLook(const Appearance& appearance = Appearance::aqua()) {
    static const bool isAdded = [] {
        for (const char* name : {"Sans-Regular.otf", "Sans-Medium.otf", "Sans-SemiBold.otf", "Sans-Bold.otf",
                                 "Mono-Regular.ttf", "Mono-Bold.ttf"})
            if (QFontDatabase::addApplicationFont(QStringLiteral(VANTEL_FONTS "/Vantel") +
                                                  QString::fromLatin1(name)) < 0)
                return false;
        return true;
    }();
    Look look{.appearance = appearance, .motion = Motion::reduced};
    look.standardFamily = isAdded ? QStringLiteral("Vantel Sans") : QStringLiteral("fonts missing");
    look.monospacedFamily = QStringLiteral("Vantel Mono");
    return look;
}

inline WidgetView viewOf(Element content, WidgetFamily family = WidgetFamily::systemSmall) {
    return {"test",
            family,
            instantFromReference(0),
            {std::move(content), TokenColor{"windowBg", DynamicColor{0xF5F4F1, 0x1C1C1E}}}};
}

inline Element text(std::string words, double size = 10) {
    return {Text{std::move(words), {.font = {size}}}};
}

inline Element oneLine(std::string words, double size = 10) {
    return {Text{std::move(words), {.font = {size}, .lineLimit = 1}}};
}

inline scene::Scene sceneOf(const WidgetView& view, Instant now = instantFromReference(0),
                            Qt::LayoutDirection direction = Qt::LeftToRight) {
    const Look look = testLook();
    return scene::laidOut(view, {look, plainFormats(), now, direction});
}

inline std::vector<QRectF> rectangles(const scene::Scene& scene) {
    std::vector<QRectF> result;
    for (const scene::Piece& piece : scene.pieces)
        result.push_back(piece.rectangle);
    return result;
}

inline std::vector<QRectF> textRectangles(const scene::Scene& scene) {
    std::vector<QRectF> result;
    for (const scene::Piece& piece : scene.pieces)
        if (std::holds_alternative<scene::TextPiece>(piece.drawing))
            result.push_back(piece.rectangle);
    return result;
}

} // namespace vantel::testing
