"""How the widgets get the keyboard, and how it goes back."""
from cards import CIRCLE, FIRST_ROW, FOCUS, ROW
from desktop import expect, wait_for
from sessions import BLUE, open_window, paper, start


def keys_come_when_asked_and_go_back_with_escape(desktop):
    start(desktop)
    color = paper(desktop, FOCUS)
    _, said = open_window(desktop)
    desktop.focus_widgets()
    left, top, width, height = desktop.card(FOCUS)

    def ring(number):
        return desktop.picture(left + CIRCLE - 12, top + FIRST_ROW - 12 + number * ROW, 24, 24)
    wait_for(lambda: paper(desktop, FOCUS) == color, "the card over the window")
    wait_for(lambda: ring(0) != ring(1), "a ring on the first circle")
    bare = ring(1)
    desktop.key("Tab")
    desktop.key("Tab")
    wait_for(lambda: ring(0) == bare and ring(1) != bare, "the ring on the second circle")
    desktop.key("Return")
    wait_for(desktop.journal, "a journal line")
    expect([each["todoID"] for each in desktop.journal()] == ["demo-2"], f"the journal has {desktop.journal()}")
    desktop.key("Escape")
    wait_for(lambda: paper(desktop, FOCUS) == BLUE, "the window over the card")
    desktop.key("x")
    wait_for(lambda: "typed x" in said(), "the keyboard in the window")
    expect([each for each in said() if each.startswith("typed")] == ["typed x"], f"it heard {said()}")


def a_click_on_a_window_takes_the_keyboard_from_the_widgets(desktop):
    start(desktop)
    color = paper(desktop, FOCUS)
    _, said = open_window(desktop)
    desktop.focus_widgets()
    left, top, _, _ = desktop.card(FOCUS)
    wait_for(lambda: paper(desktop, FOCUS) == color, "the card over the window")
    desktop.wait_until_still()
    desktop.click(300, 300)
    wait_for(lambda: paper(desktop, FOCUS) == BLUE, "the window over the card")
    desktop.key("x")
    wait_for(lambda: "typed x" in said(), "the keyboard in the window")
