"""What clicks do, and what they leave alone."""
from cards import CIRCLE, FIRST_ROW, FOCUS, TRIAGE
from desktop import expect, wait_for
from sessions import open_window, paper, place, start


def a_click_on_a_circle_completes_the_task(desktop):
    start(desktop)
    left, top, _, _ = desktop.card(FOCUS)
    desktop.click(left + CIRCLE, top + FIRST_ROW)
    wait_for(desktop.journal, "a journal line")
    expect([(each["action"], each["todoID"]) for each in desktop.journal()] == [("completeTodo", "demo-1")],
           f"the journal has {desktop.journal()}")
    wait_for(lambda: desktop.snapshot()["tasks"][0].get("completedAt"), "the stamp in the snapshot")


def clicks_go_through_the_shadow_of_a_card(desktop):
    triage = 300 + FIRST_ROW - 12 - 170  # so that its shadow, but not the card, lies over the first two circles
    above = (TRIAGE, "systemSmall", 100 + CIRCLE - 80, triage)
    below = (FOCUS, "systemMedium", 100, 300)
    last = (TRIAGE, "systemSmall", 700, 300)
    place(desktop, above, below, last, above)
    start(desktop)
    desktop.click(100 + CIRCLE, 300 + FIRST_ROW)
    wait_for(desktop.journal, "a journal line")


def clicks_leave_the_keyboard_where_it_is(desktop):
    start(desktop)
    color = paper(desktop, FOCUS)
    _, said = open_window(desktop)
    desktop.tell("floating", "enable,", "resize", "set", "400", "400,", "move", "position", "100", "100")
    left, top, _, _ = desktop.card(FOCUS)
    wait_for(lambda: paper(desktop, FOCUS) == color, "the card beside the window")
    desktop.click(left + CIRCLE, top + FIRST_ROW)
    wait_for(desktop.journal, "a journal line")
    desktop.key("x")
    wait_for(lambda: "typed x" in said(), "the keyboard in the window")


def programs_that_are_opened_choose_for_themselves(desktop):
    record = desktop.folder / "environment"
    desktop.install_companion(f'env >"{record}.new" && mv "{record}.new" "{record}"')
    start(desktop)
    left, top, _, _ = desktop.card(FOCUS)
    desktop.click(left + 40, top + 130)
    wait_for(record.exists, "an opened link")
    names = [line.split("=")[0] for line in record.read_text().splitlines()]
    expect([name for name in names if name.startswith("QT_")] == [], f"it was started with {names}")
