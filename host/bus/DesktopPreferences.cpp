#include "host/bus/DesktopPreferences.h"

#include <QDBusVariant>
#include <algorithm>
#include <cmath>

namespace vantel {

using namespace Qt::StringLiterals;

namespace {

const SettingName colorScheme{u"org.freedesktop.appearance"_s, u"color-scheme"_s};
const SettingName contrast{u"org.freedesktop.appearance"_s, u"contrast"_s};
const SettingName reducedMotion{u"org.freedesktop.appearance"_s, u"reduced-motion"_s};
const SettingName highContrast{u"org.gnome.desktop.a11y.interface"_s, u"high-contrast"_s};
const SettingName textScaling{u"org.gnome.desktop.interface"_s, u"text-scaling-factor"_s};

QVariant unwrapped(QVariant value) {
    constexpr int deepest = 8;
    for (int depth = 0; depth < deepest && value.userType() == qMetaTypeId<QDBusVariant>(); ++depth)
        value = value.value<QDBusVariant>().variant();
    return value;
}

std::optional<uint> number(const QVariant& value) {
    return value.typeId() == QMetaType::UInt ? std::optional(value.toUInt()) : std::nullopt;
}

/// 0 means that the user has no preference; numbers to come mean nothing yet.
std::optional<bool> darkness(const QVariant& value) {
    const std::optional<uint> scheme = number(value);
    return scheme == 1U || scheme == 2U ? std::optional(scheme == 1U) : std::nullopt;
}

std::optional<bool> isOne(const QVariant& value) {
    const std::optional<uint> read = number(value);
    return read ? std::optional(*read == 1) : std::nullopt;
}

std::optional<bool> truth(const QVariant& value) {
    return value.typeId() == QMetaType::Bool ? std::optional(value.toBool()) : std::nullopt;
}

std::optional<double> scale(const QVariant& value) {
    constexpr double smallest = 0.5;
    constexpr double largest = 3;
    if (value.typeId() != QMetaType::Double || !std::isfinite(value.toDouble()))
        return std::nullopt;
    return std::clamp(value.toDouble(), smallest, largest);
}

} // namespace

Appearance DesktopPreferences::appearance() const {
    if (isHighContrast)
        return isDark ? Appearance::highContrastDarkAqua() : Appearance::highContrastAqua();
    return isDark ? Appearance::darkAqua() : Appearance::aqua();
}

double cardScale(double textScale, double resolutionScale) {
    return std::max(1.0, textScale / resolutionScale);
}

void PortalReadings::take(const SettingName& name, const QVariant& value) {
    const QVariant plain = unwrapped(value);
    if (name == colorScheme)
        isDark = darkness(plain);
    else if (name == contrast)
        isHighContrast = isOne(plain);
    else if (name == highContrast)
        isAccessibleTheme = truth(plain);
    else if (name == reducedMotion)
        isMotionReduced = isOne(plain);
    else if (name == textScaling)
        textScale = scale(plain);
}

const QList<SettingName>& portalSettings() {
    static const QList<SettingName> names{colorScheme, contrast, reducedMotion, highContrast, textScaling};
    return names;
}

DesktopPreferences preferences(const PortalReadings& readings, bool isPaletteDark) {
    const bool isReduced = readings.isMotionReduced.value_or(false);
    return {.isDark = readings.isDark.value_or(isPaletteDark),
            .isHighContrast =
                readings.isHighContrast.value_or(false) || readings.isAccessibleTheme.value_or(false),
            .motion = isReduced ? Motion::reduced : Motion::full,
            .textScale = readings.textScale.value_or(1)};
}

} // namespace vantel
