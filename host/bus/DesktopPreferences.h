#pragma once

#include "host/scene/Look.h"

#include <QString>
#include <QVariant>
#include <optional>

namespace vantel {

/// What the user has set for the whole desktop.
struct DesktopPreferences {
    bool isDark = false;
    bool isHighContrast = false;
    Motion motion = Motion::full;
    double textScale = 1; ///< from 0.5 to 3

    bool operator==(const DesktopPreferences&) const = default;

    Appearance appearance() const;
};

/// By what cards are enlarged for the user's scale of texts, where everything is enlarged by another scale
/// already, which may contain the first one: it counts once. Cards do not become smaller.
double cardScale(double textScale, double resolutionScale);

/// One setting of the portal.
struct SettingName {
    QString space;
    QString key;

    bool operator==(const SettingName&) const = default;
};

/// What the portal has said so far; absent where it said nothing, nothing definite, or nonsense.
struct PortalReadings {
    std::optional<bool> isDark;
    std::optional<bool> isHighContrast;    ///< from the setting for all desktops
    std::optional<bool> isAccessibleTheme; ///< from the older one of a single desktop
    std::optional<bool> isMotionReduced;
    std::optional<double> textScale;

    /// Takes in a value as it came from the bus, wrapped in any number of variants. Values of wrong types or
    /// out of range are taken as absent, other settings are passed over.
    void take(const SettingName& name, const QVariant& value);
};

/// The settings to ask for.
const QList<SettingName>& portalSettings();

/// Readings, and where the portal has none of darkness, whether the palette of the toolkit is dark.
DesktopPreferences preferences(const PortalReadings& readings, bool isPaletteDark);

} // namespace vantel
