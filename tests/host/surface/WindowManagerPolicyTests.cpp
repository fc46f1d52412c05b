#include "host/surface/WindowManagerPolicy.h"

#include <gtest/gtest.h>

namespace vantel {

namespace {

using enum WindowManager::Below;

struct ManagerCase {
    const char* name;
    WindowManager::Below below;
    WindowMode expected;
};

const ManagerCase managerCases[] = {
    {"GNOME Shell", supported, WindowMode::dockBelow},
    {"Mutter", supported, WindowMode::dockBelow},
    {"Mutter (Muffin)", supported, WindowMode::dockBelow},
    {"Muffin", supported, WindowMode::dockBelow},
    {"Metacity", supported, WindowMode::dockBelow},
    {"Metacity (Marco)", supported, WindowMode::dockBelow},
    {"Marco", supported, WindowMode::dockBelow},
    {"IceWM 3.3.1 (Linux 6.1.0/x86_64)", supported, WindowMode::dockBelow},
    {"icewm", supported, WindowMode::dockBelow},
    {"KWin", supported, WindowMode::normalBelow},
    {"Xfwm4", supported, WindowMode::normalBelow},
    {"Openbox", supported, WindowMode::normalBelow},
    {"Fluxbox", supported, WindowMode::normalBelow},
    {"i3", supported, WindowMode::overrideRedirect},
    {"i3", unsupported, WindowMode::overrideRedirect},
    {"i3bar-like", supported, WindowMode::normalBelow},
    {"My Mutter", supported, WindowMode::normalBelow},
    {"Ice", supported, WindowMode::normalBelow},
    {"", supported, WindowMode::normalBelow},
    {"", unsupported, WindowMode::overrideRedirect},
    {"Mutter", unsupported, WindowMode::overrideRedirect},
    {"wlroots wm", unsupported, WindowMode::overrideRedirect},
};

TEST(WindowManagerPolicy, ChoosesTheModeThatWorksWithEachWindowManager) {
    for (const auto& [name, below, expected] : managerCases)
        EXPECT_EQ(windowMode({WindowManager::Presence::running, below, name}), expected) << name;
}

struct ShowDesktopCase {
    const char* name;
    WindowManager::Below below;
    ShowDesktop expected;
};

const ShowDesktopCase showDesktopCases[] = {
    {"GNOME Shell", supported, ShowDesktop::keeps},
    {"Metacity", supported, ShowDesktop::keeps},
    {"Metacity (Marco)", supported, ShowDesktop::unknown},
    {"Mutter (Muffin)", supported, ShowDesktop::unknown},
    {"IceWM 3.3.1 (Linux 6.1.0/x86_64)", supported, ShowDesktop::keeps},
    {"Xfwm4", supported, ShowDesktop::keeps},
    {"i3", unsupported, ShowDesktop::keeps},
    {"KWin", supported, ShowDesktop::hides},
    {"Openbox", supported, ShowDesktop::hides},
    {"Openbox", unsupported, ShowDesktop::unknown},
    {"Fluxbox", supported, ShowDesktop::unknown},
    {"", supported, ShowDesktop::unknown},
};

TEST(WindowManagerPolicy, KnowsWhatBecomesOfCardsWhenTheDesktopIsShown) {
    for (const auto& [name, below, expected] : showDesktopCases)
        EXPECT_EQ(onShowDesktop({WindowManager::Presence::running, below, name}), expected) << name;
}

TEST(WindowManagerPolicy, IsReadyForAWindowManagerThatStartsLater) {
    EXPECT_EQ(windowMode({}), WindowMode::normalBelow);
}

} // namespace

} // namespace vantel
