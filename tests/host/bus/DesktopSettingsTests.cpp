#include "host/app/Palette.h"
#include "host/bus/DesktopSettings.h"
#include "tests/host/bus/MockPortal.h"
#include "tests/host/schedule/WindowThread.h"

#include <QGuiApplication>
#include <QPalette>

#include <gtest/gtest.h>

namespace vantel {

using namespace Qt::StringLiterals;
namespace {

using namespace testing;
using namespace std::chrono_literals;

const QString appearance = u"org.freedesktop.appearance"_s;
const QString colorScheme = u"color-scheme"_s;

/// A palette of the whole program, put back at the end.
class ScopedPalette {
public:
    ScopedPalette(const QColor& window, const QColor& text) {
        QPalette palette = m_before;
        palette.setColor(QPalette::Window, window);
        palette.setColor(QPalette::WindowText, text);
        QGuiApplication::setPalette(palette);
    }
    ScopedPalette(const ScopedPalette&) = delete;
    ScopedPalette& operator=(const ScopedPalette&) = delete;
    ~ScopedPalette() { QGuiApplication::setPalette(m_before); }

private:
    QPalette m_before = QGuiApplication::palette();
};

class DesktopSettingsTest : public ::testing::Test {
protected:
    void begin() {
        settings.emplace(bus, isDesktopPaletteDark);
        QObject::connect(&*settings, &DesktopSettings::changed,
                         [this](const DesktopPreferences& preferences) { heard.push_back(preferences); });
    }

    /// Waits until the portal was asked for everything and has answered.
    void waitForAnswers() {
        const QString last = portalSettings().last().key;
        const auto isAsked = [&] { return !portal.calls.filter(last).isEmpty(); };
        ASSERT_TRUE(waitUntil(isAsked));
        ASSERT_TRUE(
            waitUntil([&] { return portal.hasReadOne || portal.calls.last().startsWith(u"Read "_s); }));
    }

    const ScopedPalette light{Qt::white, Qt::black};
    PrivateBus privateBus;
    MockPortal portal{privateBus};
    MessageBus bus{privateBus.address(), 1ms};
    std::optional<DesktopSettings> settings;
    std::vector<DesktopPreferences> heard;
};

TEST_F(DesktopSettingsTest, StartsWithThePaletteAndTakesThePortalsAnswersAsChanges) {
    portal.settings = {{u"org.freedesktop.appearance color-scheme"_s, 1U},
                       {u"org.gnome.desktop.interface text-scaling-factor"_s, 1.5}};
    begin();
    EXPECT_EQ(settings->preferences(), DesktopPreferences());
    const DesktopPreferences expected{.isDark = true, .textScale = 1.5};
    EXPECT_TRUE(waitUntil([&] { return settings->preferences() == expected; }));
    ASSERT_FALSE(heard.empty());
    EXPECT_EQ(heard.back(), expected);
}

TEST_F(DesktopSettingsTest, APortalWithoutReadOneIsAskedInTheOlderWay) {
    portal.hasReadOne = false;
    portal.settings = {{u"org.freedesktop.appearance color-scheme"_s, 1U}};
    begin();
    EXPECT_TRUE(waitUntil([this] { return settings->preferences().isDark; }));
    EXPECT_TRUE(portal.calls.contains(u"Read org.freedesktop.appearance color-scheme"_s));
}

TEST_F(DesktopSettingsTest, AMissingSettingIsNotAskedForTwice) {
    begin();
    waitForAnswers();
    for (std::size_t round = 1; round <= 2; ++round) { // whatever a reply led to was sent before the second
        portal.change(appearance, colorScheme, static_cast<uint>(round));
        ASSERT_TRUE(waitUntil([&] { return heard.size() == round; }));
    }
    EXPECT_EQ(portal.calls.size(), portalSettings().size());
}

TEST_F(DesktopSettingsTest, FollowsChangesAndTellsOnlyOfDifferences) {
    begin();
    waitForAnswers();
    portal.change(appearance, colorScheme, 1U);
    ASSERT_TRUE(waitUntil([this] { return heard.size() == 1; }));
    EXPECT_TRUE(heard[0].isDark);
    portal.change(appearance, colorScheme, 1U);
    portal.change(appearance, u"accent-color"_s, 3U);
    portal.change(appearance, u"reduced-motion"_s, 1U);
    ASSERT_TRUE(waitUntil([this] { return heard.size() == 2; }));
    EXPECT_EQ(heard[1], (DesktopPreferences{.isDark = true, .motion = Motion::reduced}));
}

TEST_F(DesktopSettingsTest, MalformedChangesDoNoHarm) {
    begin();
    waitForAnswers();
    for (const QVariantList& arguments :
         std::vector<QVariantList>{{}, {1, 2, 3}, {appearance, colorScheme}, {appearance, colorScheme, 1U}})
        portal.sendChange(arguments);
    portal.change(appearance, colorScheme, u"dark"_s);
    portal.change(appearance, u"contrast"_s, 1U);
    ASSERT_TRUE(waitUntil([this] { return !heard.empty(); }));
    EXPECT_EQ(heard[0], DesktopPreferences{.isHighContrast = true});
}

TEST_F(DesktopSettingsTest, AnotherProcessCannotSpeakForThePortal) {
    begin();
    waitForAnswers();
    BusPeer stranger(privateBus);
    QDBusMessage signal = QDBusMessage::createSignal(
        u"/org/freedesktop/portal/desktop"_s, u"org.freedesktop.portal.Settings"_s, u"SettingChanged"_s);
    signal.setArguments({appearance, colorScheme, QVariant::fromValue(QDBusVariant(1U))});
    stranger.connection.send(signal);
    portal.change(appearance, u"contrast"_s, 1U);
    ASSERT_TRUE(waitUntil([this] { return !heard.empty(); }));
    EXPECT_FALSE(heard[0].isDark);
}

TEST_F(DesktopSettingsTest, ThePaletteCountsWhileThePortalHasNoPreference) {
    begin();
    waitForAnswers();
    {
        const ScopedPalette dark(Qt::black, Qt::white);
        EXPECT_TRUE(waitUntil([this] { return settings->preferences().isDark; }));
    }
    EXPECT_TRUE(waitUntil([this] { return !settings->preferences().isDark; }));
}

TEST(DesktopSettingsWithoutBus, FollowThePalette) {
    const ScopedPalette dark(Qt::black, Qt::white);
    MessageBus bus{QString()};
    const DesktopSettings settings(bus, isDesktopPaletteDark);
    EXPECT_EQ(settings.preferences(), DesktopPreferences{.isDark = true});
}

} // namespace
} // namespace vantel
