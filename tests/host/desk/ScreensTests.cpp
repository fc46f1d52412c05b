#include "host/desk/Screens.h"

#include <QGuiApplication>
#include <QScreen>

#include <gtest/gtest.h>

namespace vantel {

namespace {

std::string serialOf(const QScreen& screen) {
    return "number of " + screen.name().toStdString();
}

TEST(SystemScreens, AreTheApplicationsWithThePrimaryOneFirst) {
    const SystemScreens screens(serialOf);
    const std::vector<Monitor> monitors = screens.monitors();
    ASSERT_EQ(monitors.size(), static_cast<std::size_t>(QGuiApplication::screens().size()));
    const QScreen& primary = *QGuiApplication::primaryScreen();
    EXPECT_EQ(monitors.front().screen, &primary);
    EXPECT_EQ(monitors.front().geometry, primary.geometry());
    EXPECT_EQ(monitors.front().available, primary.availableGeometry());
    EXPECT_EQ(monitors.front().identity.name, primary.name().toStdString());
    EXPECT_EQ(monitors.front().identity.serial, serialOf(primary));
}

TEST(SystemScreens, SayABurstOfChangesOnce) {
    SystemScreens screens(serialOf);
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
