#include "host/doctor/DesktopFindings.h"
#include "tests/fakes/FakeFormats.h"

#include <gtest/gtest.h>

namespace vantel {
namespace {

using enum WindowManager::Below;

std::string printedFor(const DesktopFacts& facts) {
    return printed(desktopFindings(facts, testing::PlainFormats()));
}

std::string firstLinesFor(const DesktopFacts& facts) {
    const std::string text = printedFor(facts);
    return text.substr(0, text.find('\n', text.find('\n') + 1)) + '\n';
}

struct GroundCase {
    DesktopFacts facts;
    const char* line;
    const char* reason;
};

constexpr BackEndChoice onX{BackEnd::x11, BackEndReason::noCompositor};
constexpr BackEndChoice besideWayland{BackEnd::x11, BackEndReason::noLayers};
constexpr BackEndChoice onLayers{BackEnd::wayland, BackEndReason::compositorLayers};
constexpr BackEndChoice ofUser{BackEnd::toolkit, BackEndReason::platformVariable};

const GroundCase groundCases[] = {
    {{.display = ":0", .choice = onX, .x11 = SessionOnX11{}},
     "ok    The widgets stand on the X server :0.",
     "ok    That is so because no Wayland compositor answers here."},
    {{.platform = "wayland;xcb", .display = ":0", .choice = onX, .x11 = SessionOnX11{}},
     "ok    The widgets stand on the X server :0.",
     "ok    That is so because no Wayland compositor answers here."},
    {{.display = ":0", .waylandDisplay = "wayland-1", .choice = onLayers},
     "ok    The widgets stand on layers of the compositor wayland-1, below all windows.",
     "ok    That is so because the compositor offers layers of the desktop."},
    {{.display = ":0", .waylandDisplay = "wayland-1", .choice = besideWayland, .x11 = SessionOnX11{}},
     "ok    The widgets stand on the X server :0.",
     "ok    That is so because the compositor offers no layers of the desktop (zwlr_layer_shell_v1)."},
    {{.display = ":0\x1b[2J", .choice = onX},
     "fail  The X server :0␛[2J does not answer.",
     "ok    That is so because no Wayland compositor answers here."},
    {{.waylandDisplay = "wayland-1", .choice = std::unexpected(BackEndProblem::noWaylandPart)},
     "fail  The widgets find nothing to stand on: Qt lacks its part for Wayland (package qt6-wayland).",
     ""},
    {{},
     "fail  The widgets find nothing to stand on: there is no display here (neither DISPLAY nor "
     "WAYLAND_DISPLAY leads to one).",
     ""},
    {{.platform = "offscreen", .display = ":0", .choice = ofUser},
     "ok    The widgets draw on “offscreen”, as QT_QPA_PLATFORM says.",
     "ok    That is so because QT_QPA_PLATFORM asks for it."},
};

TEST(DesktopFindings, SayWhatTheWidgetsStandOnAndWhy) {
    for (const auto& [facts, line, reason] : groundCases) {
        const std::string second = *reason == '\0' ? "" : std::string(reason) + "\n";
        EXPECT_TRUE(firstLinesFor(facts).starts_with(line + std::string("\n") + second))
            << firstLinesFor(facts);
    }
}

struct ManagerCase {
    const char* name;
    WindowManager::Below below;
    const char* mode;
    const char* showDesktop;
};

constexpr const char* stay = "ok    The widgets stay when it shows the desktop.\n";
constexpr const char* go = "warn  It hides the widgets with all windows when it shows the desktop.\n";
constexpr const char* unknown = "ok    Whether the widgets stay when it shows the desktop is not known.\n";

const ManagerCase managerCases[] = {
    {"Xfwm4", supported,
     "ok    The window manager is Xfwm4. The widgets are normal windows that it keeps below others.\n", stay},
    {"Openbox", supported,
     "ok    The window manager is Openbox. The widgets are normal windows that it keeps below others.\n", go},
    {"KWin", supported,
     "ok    The window manager is KWin. The widgets are normal windows that it keeps below others.\n", go},
    {"Fluxbox", supported,
     "ok    The window manager is Fluxbox. The widgets are normal windows that it keeps below others.\n",
     unknown},
    {"GNOME Shell", supported,
     "ok    The window manager is GNOME Shell. The widgets are docks that reserve no room, which it keeps "
     "below windows.\n",
     stay},
    {"Metacity (Marco)", supported,
     "ok    The window manager is Metacity (Marco). The widgets are docks that reserve no room, which it "
     "keeps below windows.\n",
     unknown},
    {"IceWM 3.3.1 (Linux 6.1.0/x86_64)", supported,
     "ok    The window manager is IceWM 3.3.1 (Linux 6.1.0/x86_64). The widgets are docks that reserve no "
     "room, which it keeps below windows.\n",
     stay},
    {"i3", supported,
     "ok    The window manager is i3. The widgets lie below all windows, and it does not manage them.\n",
     stay},
    {"Openbox", unsupported,
     "warn  The window manager is Openbox. It keeps no window below others on request, so the widgets may "
     "lie above some.\n",
     unknown},
    {"", unsupported,
     "warn  The window manager is without a name. It keeps no window below others on request, so the "
     "widgets may lie above some.\n",
     unknown},
};

TEST(DesktopFindings, SayWhatEachWindowManagerDoesForTheWidgets) {
    for (const auto& [name, below, mode, showDesktop] : managerCases) {
        const WindowManager manager{WindowManager::Presence::running, below, name};
        const std::string text =
            printedFor({.display = ":0", .choice = onX, .x11 = SessionOnX11{.manager = manager}});
        EXPECT_NE(text.find(std::string(mode) + showDesktop), std::string::npos) << text;
    }
}

TEST(DesktopFindings, WithoutAWindowManagerNothingIsSaidOfShowingTheDesktop) {
    EXPECT_EQ(printedFor({.display = ":0", .choice = onX, .x11 = SessionOnX11{}}),
              "ok    The widgets stand on the X server :0.\n"
              "ok    That is so because no Wayland compositor answers here.\n"
              "warn  No window manager runs, so nothing keeps the widgets below other windows.\n"
              "ok    Windows are not blended: the cards have no shadows, and hard corners.\n");
}

TEST(DesktopFindings, SayWhetherWindowsAreBlended) {
    const std::string text =
        printedFor({.display = ":0", .choice = onX, .x11 = SessionOnX11{.blending = Blending::blended}});
    EXPECT_TRUE(text.ends_with("ok    Windows are blended: the cards have shadows and soft corners.\n"));
}

} // namespace
} // namespace vantel
