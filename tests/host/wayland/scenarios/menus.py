"""The menu of a card and the gallery."""
from cards import CIRCLE, FIRST_ROW, FOCUS, TRIAGE
from desktop import expect, wait_for
from sessions import open_menu, open_window, start


def a_menu_opens_above_all_and_closes_by_a_click_beside_it(desktop):
    start(desktop)
    before = desktop.picture()
    open_menu(desktop, TRIAGE)
    desktop.click(300, 300)
    desktop.leave()
    wait_for(lambda: desktop.picture() == before, "no menu after a click on the desktop")
    open_menu(desktop, TRIAGE)
    other = desktop.card(FOCUS)
    desktop.click(other[0] + CIRCLE, other[1] + FIRST_ROW)
    desktop.leave()
    wait_for(lambda: desktop.picture() == before, "no menu after a click on another card")
    expect(desktop.journal() == [], "the click that closed the menu completed a task")


def keys_choose_from_the_menu_and_escape_closes_it(desktop):
    start(desktop)
    before = desktop.picture()
    _, said = open_window(desktop)
    desktop.tell("workspace", "2")
    left, top, _, _ = desktop.card(TRIAGE)
    wait_for(lambda: desktop.picture() == before, "the cards")
    open_menu(desktop, TRIAGE)
    desktop.key("Escape")
    desktop.leave()
    wait_for(lambda: desktop.picture() == before, "no menu after Escape")
    open_menu(desktop, TRIAGE)
    for name in ("Down", "Down", "Down", "Return"):
        desktop.key(name)
    wait_for(lambda: len(desktop.placements()) == 3, "one widget fewer")
    wait_for(lambda: desktop.color(left + 60, top + 10) == desktop.background, "no card where it was")
    desktop.tell("workspace", "1")
    desktop.key("x")
    wait_for(lambda: "typed x" in said(), "the keyboard in the window")
    expect([each for each in said() if each.startswith("typed")] == ["typed x"], f"it heard {said()}")


def the_gallery_is_an_ordinary_window_that_adds_widgets(desktop):
    start(desktop)
    desktop.ask("ShowGallery")
    wait_for(lambda: desktop.windows() == ["Add widgets"], "the gallery")
    desktop.wait_until_still()
    desktop.key("Tab")
    desktop.key("Return")
    wait_for(lambda: len(desktop.placements()) == 5, "one widget more")
    desktop.key("Escape")
    wait_for(lambda: desktop.windows() == [], "no gallery after Escape")
    wait_for(lambda: all(desktop.is_drawn(each) for each in desktop.placements()), "five drawn cards")
