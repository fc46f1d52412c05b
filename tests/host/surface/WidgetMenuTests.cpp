#include "host/surface/WidgetMenu.h"
#include "tests/fakes/FakeFormats.h"

#include <gmock/gmock.h>

namespace vantel::testing {

namespace {

using ::testing::ElementsAre;

struct WidgetMenuTest : ::testing::Test {
    PlainFormats formats;
    QMenu menu;
    std::vector<WidgetFamily> families;
    std::vector<MenuCommand> commands;

    void fill(const FamilyChoice& choice, KeyboardUse use = KeyboardUse::none) {
        const MenuActions actions{.family = [this](WidgetFamily family) { families.push_back(family); },
                                  .command = [this](MenuCommand command) { commands.push_back(command); }};
        fillWidgetMenu(menu, choice, use, actions, formats);
    }

    std::vector<std::string> texts() const {
        std::vector<std::string> result;
        for (const QAction* action : menu.actions())
            result.push_back(action->isSeparator() ? "-" : action->text().toStdString());
        return result;
    }
};

TEST_F(WidgetMenuTest, OffersTheSizesAndMarksTheCurrentOne) {
    fill({{WidgetFamily::systemSmall, WidgetFamily::systemMedium}, WidgetFamily::systemMedium});
    EXPECT_THAT(texts(), ElementsAre("Small", "Medium", "-", "Use with the keyboard", "Reload", "Remove", "-",
                                     "Add widgets…", "About", "Quit"));
    EXPECT_FALSE(menu.actions()[0]->isChecked());
    EXPECT_TRUE(menu.actions()[1]->isChecked());
    menu.actions()[0]->trigger();
    EXPECT_FALSE(menu.actions()[1]->isChecked());
    EXPECT_THAT(families, ElementsAre(WidgetFamily::systemSmall));
}

TEST_F(WidgetMenuTest, HasNoSizesWhereThereIsNoChoice) {
    fill({{WidgetFamily::systemSmall}, WidgetFamily::systemSmall});
    EXPECT_EQ(texts().front(), "Use with the keyboard");
}

TEST_F(WidgetMenuTest, DoesNotOfferTheKeyboardToWhoHasIt) {
    fill({}, KeyboardUse::now);
    EXPECT_THAT(texts(), ElementsAre("Reload", "Remove", "-", "Add widgets…", "About", "Quit"));
}

TEST_F(WidgetMenuTest, EveryEntryAsksForItsOwnCommand) {
    fill({});
    for (QAction* action : menu.actions())
        action->trigger();
    using enum MenuCommand;
    EXPECT_THAT(commands, ElementsAre(takeFocus, reload, remove, addWidgets, about, quit));
}

} // namespace

} // namespace vantel::testing
