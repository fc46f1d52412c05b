#include "host/scene/SceneFont.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <algorithm>

namespace vantel::scene {

namespace {

constexpr int laidOutSize = 240; ///< in pixels
constexpr double highestLine = 1.25;
constexpr double largeSize = 16;
constexpr double textPitch = 1.25;
constexpr double titlePitch = 1.12;

QFont::Weight qtWeight(FontWeight weight) {
    switch (weight) {
    case FontWeight::regular:
        return QFont::Normal;
    case FontWeight::medium:
        return QFont::Medium;
    case FontWeight::semibold:
        return QFont::DemiBold;
    case FontWeight::bold:
        return QFont::Bold;
    }
    return QFont::Normal;
}

QFont family(FontDesign design, const Look& look) {
    const bool isMonospaced = design == FontDesign::monospaced;
    const QString& chosen = isMonospaced ? look.monospacedFamily : look.standardFamily;
    if (!chosen.isEmpty())
        return QFont(QStringList{chosen, look.monospacedFamily});
    return isMonospaced ? QFontDatabase::systemFont(QFontDatabase::FixedFont) : QGuiApplication::font();
}

} // namespace

SceneFont sceneFont(const TextStyle& style, const Look& look, double fraction) {
    QFont font = family(style.font.design, look);
    const double pixelsPerPoint = laidOutSize / std::max(1.0, style.font.size * fraction);
    font.setPixelSize(laidOutSize);
    font.setWeight(qtWeight(style.font.weight));
    font.setHintingPreference(QFont::PreferNoHinting);
    // NOLINTNEXTLINE(clang-analyzer-optin.core.EnumCastOutOfRange): the toolkit's strategies are flags.
    font.setStyleStrategy(QFont::StyleStrategy(QFont::PreferAntialias | QFont::NoSubpixelAntialias));
    font.setLetterSpacing(QFont::AbsoluteSpacing, (style.tracking + style.kerning) * pixelsPerPoint);
    font.setKerning(style.kerning == 0);
    return {font, pixelsPerPoint};
}

LineMetrics lineMetrics(const SceneFont& font, double size) {
    const QFontMetricsF metrics(font.font);
    const double ascent = metrics.ascent() / font.pixelsPerPoint;
    const double descent = metrics.descent() / font.pixelsPerPoint;
    const double fraction = std::min(1.0, highestLine * size / (ascent + descent));
    const double pitch = size < largeSize ? textPitch : titlePitch;
    return {ascent * fraction, descent * fraction, pitch * size};
}

} // namespace vantel::scene
