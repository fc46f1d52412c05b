"""How the widgets get the keyboard, and how it goes back."""
from cards import CIRCLE, FIRST_ROW, FOCUS, ROW
from desktop import expect, wait_for
from sessions import BLUE, open_window, paper, start


def focus_over_a_window(desktop, kind):
    """Brings the card of a kind over a window, with the keyboard, and returns what the window says."""
    start(desktop)
    color = paper(desktop, kind)
    _, said = open_window(desktop)
    desktop.focus_widgets()
    wait_for(lambda: paper(desktop, kind) == color, "the card over the window")
    return said


def expect_keyboard_in_the_window(desktop, said):
    wait_for(lambda: paper(desktop, FOCUS) == BLUE, "the window over the card")
    desktop.key("x")
    wait_for(lambda: "typed x" in said(), "the keyboard in the window")


def keys_come_when_asked_and_go_back_with_escape(desktop):
    said = focus_over_a_window(desktop, FOCUS)
    left, top, _, _ = desktop.card(FOCUS)

    def ring(number):
        return desktop.picture(left + CIRCLE - 12, top + FIRST_ROW - 12 + number * ROW, 24, 24)
    wait_for(lambda: ring(0) != ring(1), "a ring on the first circle")
    bare = ring(1)
    desktop.key("Tab")
    desktop.key("Tab")
    wait_for(lambda: ring(0) == bare and ring(1) != bare, "the ring on the second circle")
    desktop.key("Return")
    wait_for(desktop.journal, "a journal line")
    expect([each["todoID"] for each in desktop.journal()] == ["demo-2"], f"the journal has {desktop.journal()}")
    desktop.key("Escape")
    expect_keyboard_in_the_window(desktop, said)
    expect([each for each in said() if each.startswith("typed")] == ["typed x"], f"it heard {said()}")


def a_click_on_a_window_takes_the_keyboard_from_the_widgets(desktop):
    said = focus_over_a_window(desktop, FOCUS)
    desktop.wait_until_still()
    desktop.click(300, 300)
    expect_keyboard_in_the_window(desktop, said)
