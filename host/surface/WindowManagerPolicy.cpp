#include "host/surface/WindowManagerPolicy.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <string_view>

namespace vantel {

namespace {

/// The beginnings of the names of those that hide normal windows on "show desktop", but not docks.
constexpr std::array<std::string_view, 6> wantDocks{"gnome shell", "mutter", "metacity",
                                                    "marco",       "icewm",  "muffin"};

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

} // namespace

WindowMode windowMode(const WindowManager& manager) {
    if (manager.presence == WindowManager::Presence::none)
        return WindowMode::normalBelow;
    if (manager.below == WindowManager::Below::unsupported || isNamed(manager.name, "i3"))
        return WindowMode::overrideRedirect;
    return wantsDocks(manager.name) ? WindowMode::dockBelow : WindowMode::normalBelow;
}

} // namespace vantel
