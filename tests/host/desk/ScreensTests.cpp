#include "host/desk/Screens.h"
#include "host/surface/WindowSystem.h"

#include <QGuiApplication>
#include <QScreen>

#include <gtest/gtest.h>

namespace vantel {

namespace {

constexpr QRect withoutPanel(0, 30, 100, 70);

/// Knows more of screens than the toolkit.
class KnowingWindows final : public WindowSystem {
public:
    std::unique_ptr<Surface> makeSurface(QWidget&) override { return nullptr; }
    Blending blending() const override { return Blending::blended; }
    std::string serialNumber(const QScreen& screen) override {
        return "number of " + screen.name().toStdString();
    }
    QRect availableGeometry(const QScreen&) override { return withoutPanel; }
};

TEST(SystemScreens, AreTheApplicationsWithThePrimaryOneFirst) {
    KnowingWindows windows;
    const SystemScreens screens(windows);
    const std::vector<Monitor> monitors = screens.monitors();
    ASSERT_EQ(monitors.size(), static_cast<std::size_t>(QGuiApplication::screens().size()));
    const QScreen& primary = *QGuiApplication::primaryScreen();
    EXPECT_EQ(monitors.front().screen, &primary);
    EXPECT_EQ(monitors.front().geometry, primary.geometry());
    EXPECT_EQ(monitors.front().available, withoutPanel);
    EXPECT_EQ(monitors.front().identity.name, primary.name().toStdString());
    EXPECT_EQ(monitors.front().identity.serial, windows.serialNumber(primary));
}

TEST(SystemScreens, SayABurstOfChangesOnce) {
    KnowingWindows windows;
    SystemScreens screens(windows);
    int said = 0;
    QObject::connect(&screens, &Screens::changed, [&] { ++said; });
    QScreen& primary = *QGuiApplication::primaryScreen();
    Q_EMIT primary.geometryChanged(primary.geometry());
    Q_EMIT primary.availableGeometryChanged(primary.availableGeometry());
    EXPECT_EQ(said, 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(said, 1);
}

} // namespace

} // namespace vantel
