#pragma once

#include "hosting/WidgetFamily.h"
#include "platform/Formats.h"

#include <QMenu>
#include <functional>
#include <vector>

namespace vantel {

/// What the menu of a card can ask for, apart from a size.
enum class MenuCommand { takeFocus, remove, addWidgets, reload, about, quit };

/// The sizes that a widget declares, and the one it has.
struct FamilyChoice {
    std::vector<WidgetFamily> families;
    WidgetFamily current = WidgetFamily::systemSmall;
};

/// Whether a card is used with the keyboard already.
enum class KeyboardUse { none, now };

struct MenuActions {
    std::function<void(WidgetFamily)> family;
    std::function<void(MenuCommand)> command;
};

/// The size in the user's words: "Small".
QString familyText(WidgetFamily family, const Formats& formats);

/// Fills the menu of a card. Sizes are there only when there is a choice, and the keyboard only where it is
/// not yet.
void fillWidgetMenu(QMenu& menu, const FamilyChoice& choice, KeyboardUse use, const MenuActions& actions,
                    const Formats& formats);

} // namespace vantel
