#include "host/surface/WidgetMenu.h"

#include <QActionGroup>

namespace vantel {

namespace {

std::string familyWord(WidgetFamily family, const Formats& formats) {
    switch (family) {
    case WidgetFamily::systemSmall:
        return formats.translated("Small");
    case WidgetFamily::systemMedium:
        return formats.translated("Medium");
    case WidgetFamily::systemLarge:
        return formats.translated("Large");
    }
    return {};
}

/// In a menu an ampersand marks the letter that follows it, so one of a text is doubled.
QString menuText(const std::string& text) {
    return QString::fromStdString(text).replace(u'&', QStringLiteral("&&"));
}

void addFamilies(QMenu& menu, const FamilyChoice& choice, const MenuActions& actions,
                 const Formats& formats) {
    auto* group = new QActionGroup(&menu);
    for (const WidgetFamily family : choice.families) {
        QAction* action = menu.addAction(menuText(familyWord(family, formats)));
        action->setCheckable(true);
        action->setChecked(family == choice.current);
        group->addAction(action);
        QObject::connect(action, &QAction::triggered, &menu, [=] { actions.family(family); });
    }
    // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks): the menu owns the group.
    menu.addSeparator();
}

void addCommand(QMenu& menu, const std::string& text, MenuCommand command, const MenuActions& actions) {
    QObject::connect(menu.addAction(menuText(text)), &QAction::triggered, &menu,
                     [=] { actions.command(command); });
}

} // namespace

QString familyText(WidgetFamily family, const Formats& formats) {
    return QString::fromStdString(familyWord(family, formats));
}

void fillWidgetMenu(QMenu& menu, const FamilyChoice& choice, KeyboardUse use, const MenuActions& actions,
                    const Formats& formats) {
    if (choice.families.size() > 1)
        addFamilies(menu, choice, actions, formats);
    if (use == KeyboardUse::none)
        addCommand(menu, formats.translated("Use with the keyboard"), MenuCommand::takeFocus, actions);
    addCommand(menu, formats.translated("Reload"), MenuCommand::reload, actions);
    addCommand(menu, formats.translated("Remove"), MenuCommand::remove, actions);
    menu.addSeparator();
    addCommand(menu, formats.translated("Add widgets…"), MenuCommand::addWidgets, actions);
    addCommand(menu, formats.translated("About"), MenuCommand::about, actions);
    addCommand(menu, formats.translated("Quit"), MenuCommand::quit, actions);
}

} // namespace vantel
