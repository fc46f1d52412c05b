#include "host/bus/DesktopPreferences.h"

#include <QDBusVariant>
#include <limits>

#include <gtest/gtest.h>

namespace vantel {

using namespace Qt::StringLiterals;
namespace {

const SettingName colorScheme{u"org.freedesktop.appearance"_s, u"color-scheme"_s};
const SettingName contrast{u"org.freedesktop.appearance"_s, u"contrast"_s};
const SettingName reducedMotion{u"org.freedesktop.appearance"_s, u"reduced-motion"_s};
const SettingName highContrast{u"org.gnome.desktop.a11y.interface"_s, u"high-contrast"_s};
const SettingName textScaling{u"org.gnome.desktop.interface"_s, u"text-scaling-factor"_s};

QVariant wrapped(const QVariant& value) {
    return QVariant::fromValue(QDBusVariant(value));
}

DesktopPreferences after(const SettingName& name, const QVariant& value) {
    PortalReadings readings;
    readings.take(name, value);
    return preferences(readings, false);
}

TEST(DesktopPreferences, WithoutAnyReadingThePaletteDecidesAndNothingElseIsSpecial) {
    EXPECT_EQ(preferences({}, false), DesktopPreferences());
    EXPECT_EQ(preferences({}, true), DesktopPreferences{.isDark = true});
}

TEST(DesktopPreferences, TheColorSchemeOutranksThePaletteWhereItIsDefinite) {
    struct Row {
        QVariant value;
        bool onLightPalette;
        bool onDarkPalette;
    };
    const QVariant one = 1U;
    for (const Row& row : std::vector<Row>{{0U, false, true},
                                           {1U, true, true},
                                           {2U, false, false},
                                           {3U, false, true},
                                           {0xFFFFFFFFU, false, true},
                                           {1, false, true},
                                           {true, false, true},
                                           {1.0, false, true},
                                           {u"1"_s, false, true},
                                           {QVariant(), false, true},
                                           {QStringList{u"1"_s}, false, true},
                                           {wrapped(1U), true, true},
                                           {wrapped(wrapped(wrapped(2U))), false, false},
                                           {wrapped(u"dark"_s), false, true}}) {
        PortalReadings readings;
        readings.take(colorScheme, row.value);
        EXPECT_EQ(preferences(readings, false).isDark, row.onLightPalette) << row.value.typeName();
        EXPECT_EQ(preferences(readings, true).isDark, row.onDarkPalette) << row.value.typeName();
    }
}

TEST(DesktopPreferences, AReadingThatBecomesIndefiniteIsForgotten) {
    PortalReadings readings;
    readings.take(colorScheme, 1U);
    readings.take(colorScheme, 0U);
    EXPECT_FALSE(preferences(readings, false).isDark);
}

TEST(DesktopPreferences, EitherSettingOfHighContrastCounts) {
    EXPECT_TRUE(after(contrast, 1U).isHighContrast);
    EXPECT_TRUE(after(highContrast, true).isHighContrast);
    for (const QVariant& value : {QVariant(0U), QVariant(2U), QVariant(true), QVariant(1)})
        EXPECT_FALSE(after(contrast, value).isHighContrast) << value.typeName();
    for (const QVariant& value : {QVariant(false), QVariant(1U), QVariant(u"true"_s)})
        EXPECT_FALSE(after(highContrast, value).isHighContrast) << value.typeName();
}

TEST(DesktopPreferences, MotionIsReducedByOneOnly) {
    EXPECT_EQ(after(reducedMotion, 1U).motion, Motion::reduced);
    for (const QVariant& value : {QVariant(0U), QVariant(2U), QVariant(true), QVariant(1)})
        EXPECT_EQ(after(reducedMotion, value).motion, Motion::full) << value.typeName();
}

TEST(DesktopPreferences, TheTextScaleStaysInBoundsAndNonsenseIsOne) {
    struct Row {
        QVariant value;
        double scale;
    };
    constexpr double infinity = std::numeric_limits<double>::infinity();
    for (const Row& row : std::vector<Row>{{1.25, 1.25},
                                           {0.5, 0.5},
                                           {0.49, 0.5},
                                           {-7.0, 0.5},
                                           {3.0, 3},
                                           {1e300, 3},
                                           {infinity, 1},
                                           {std::numeric_limits<double>::quiet_NaN(), 1},
                                           {2, 1},
                                           {u"2"_s, 1},
                                           {QVariant(), 1}})
        EXPECT_EQ(after(textScaling, row.value).textScale, row.scale) << row.value.typeName();
}

TEST(CardScale, CountsTheScaleOfTextsOnce) {
    struct Row {
        double textScale;
        double resolutionScale;
        double expected;
    };
    for (const Row& row : {Row{1, 1, 1}, Row{1.5, 1, 1.5}, Row{1.5, 1.5, 1}, Row{2, 2, 1}, Row{1, 2, 1},
                           Row{1.25, 2.5, 1}, Row{3, 2, 1.5}, Row{0.5, 1, 1}})
        EXPECT_EQ(cardScale(row.textScale, row.resolutionScale), row.expected)
            << row.textScale << " " << row.resolutionScale;
}

TEST(DesktopPreferences, OtherSettingsArePassedOver) {
    EXPECT_EQ(after({u"org.freedesktop.appearance"_s, u"accent-color"_s}, 1U), DesktopPreferences());
    EXPECT_EQ(after({u"org.gnome.desktop.interface"_s, u"color-scheme"_s}, 1U), DesktopPreferences());
}

TEST(DesktopPreferences, EachCombinationHasItsAppearance) {
    EXPECT_EQ(DesktopPreferences().appearance(), Appearance::aqua());
    EXPECT_EQ((DesktopPreferences{.isDark = true}.appearance()), Appearance::darkAqua());
    EXPECT_EQ((DesktopPreferences{.isHighContrast = true}.appearance()), Appearance::highContrastAqua());
    EXPECT_EQ((DesktopPreferences{.isDark = true, .isHighContrast = true}.appearance()),
              Appearance::highContrastDarkAqua());
}

} // namespace
} // namespace vantel
