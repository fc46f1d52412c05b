#include "host/surface/WindowManagerPolicy.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <span>
#include <string_view>

namespace vantel {

namespace {

/// The beginnings of the names of those that hide normal windows on "show desktop", but not docks.
constexpr std::array<std::string_view, 6> wantDocks{"gnome shell", "mutter", "metacity",
                                                    "marco",       "icewm",  "muffin"};

/// The names of those that keep, and of those that hide, a card in its mode when they show the desktop.
constexpr std::array<std::string_view, 4> keepCards{"gnome shell", "mutter", "metacity", "xfwm4"};
constexpr std::array<std::string_view, 2> hideCards{"kwin", "openbox"};

bool equalsInLowerCase(char c, char lower) {
    return std::tolower(static_cast<unsigned char>(c)) == lower;
}

bool beginsWith(std::string_view name, std::string_view lowerCaseBeginning) {
    return name.size() >= lowerCaseBeginning.size() &&
           std::ranges::equal(name.substr(0, lowerCaseBeginning.size()), lowerCaseBeginning,
                              equalsInLowerCase);
}

bool isNamed(std::string_view name, std::string_view lowerCaseName) {
    return beginsWith(name, lowerCaseName) && name.size() == lowerCaseName.size();
}

bool wantsDocks(std::string_view name) {
    return std::ranges::any_of(wantDocks, [&](std::string_view each) { return beginsWith(name, each); });
}

bool isOneOf(std::span<const std::string_view> names, std::string_view name) {
    return std::ranges::any_of(names, [&](std::string_view each) { return isNamed(name, each); });
}

/// Its name is followed by its version.
bool isIceWM(std::string_view name) {
    return beginsWith(name, "icewm");
}

} // namespace

bool isTiling(const WindowManager& manager) {
    return isNamed(manager.name, "i3");
}

WindowMode windowMode(const WindowManager& manager) {
    if (manager.presence == WindowManager::Presence::none)
        return WindowMode::normalBelow;
    if (manager.below == WindowManager::Below::unsupported || isTiling(manager))
        return WindowMode::overrideRedirect;
    return wantsDocks(manager.name) ? WindowMode::dockBelow : WindowMode::normalBelow;
}

ShowDesktop onShowDesktop(const WindowManager& manager) {
    if (isTiling(manager))
        return ShowDesktop::keeps;
    if (windowMode(manager) == WindowMode::overrideRedirect)
        return ShowDesktop::unknown;
    if (isOneOf(keepCards, manager.name) || isIceWM(manager.name))
        return ShowDesktop::keeps;
    return isOneOf(hideCards, manager.name) ? ShowDesktop::hides : ShowDesktop::unknown;
}

} // namespace vantel
