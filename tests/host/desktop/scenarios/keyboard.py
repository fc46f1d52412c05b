"""The keyboard comes to a card when it is asked for, walks it, and goes back."""
import signal
import time

from cards import CIRCLE, FIRST_ROW, FOCUS, ROW, open_menu
from desktop import expect, wait_for


def keys_walk_a_card_and_complete_a_task(desktop):
    desktop.show_sample_day()
    left, top, _, _ = desktop.card(FOCUS)
    circles = [(left + CIRCLE - 12, top + FIRST_ROW - 12 + i * ROW, 24, 24) for i in range(2)]
    bare = [desktop.picture(*circle) for circle in circles]

    def ringed():
        return [i for i in range(2) if desktop.picture(*circles[i]) != bare[i]]
    desktop.focus_widgets()
    wait_for(lambda: ringed() == [0], "a ring on the first circle")
    desktop.key("Tab")
    wait_for(lambda: ringed() == [], "the ring on the first title")
    desktop.key("Tab")
    wait_for(lambda: ringed() == [1], "the ring on the second circle")
    desktop.key("Return")
    wait_for(desktop.journal, "a journal line")
    expect([each["todoID"] for each in desktop.journal()] == ["demo-2"], f"the journal has {desktop.journal()}")


def keys_alone_complete_a_task(desktop):
    desktop.show_sample_day()
    desktop.start("xev", "-geometry", "200x200+20+400")
    other = wait_for(lambda: desktop.focused("Event Tester"), "a window that has the keyboard")
    desktop.wait_until_still()
    before = desktop.picture(*desktop.card(FOCUS))
    desktop.ask("FocusWidgets")
    wait_for(lambda: desktop.focused("Focus"), "the keyboard in the focus widget")
    wait_for(lambda: desktop.picture(*desktop.card(FOCUS)) != before, "a ring")
    desktop.press_keys("Escape")
    wait_for(lambda: desktop.focused("Event Tester") == other, "the keyboard back where it was")
    wait_for(lambda: desktop.picture(*desktop.card(FOCUS)) == before, "no ring")
    desktop.ask("FocusWidgets")
    wait_for(lambda: desktop.focused("Focus"), "the keyboard in the focus widget again")
    desktop.press_keys("Tab", "Tab", "Return")
    wait_for(lambda: [each["todoID"] for each in desktop.journal()] == ["demo-2"], "the second task in the journal")


def the_keyboard_stays_where_the_window_manager_takes_its_time(desktop):
    """Only after 0.4 seconds does the toolkit say that the keyboard has left, in case that it goes to another window of
    ours; meanwhile it may have been asked for anew."""
    desktop.write_snapshot(dict(desktop.placeholder(), events=[]))  # so that nothing counts down
    desktop.start_widgets()
    desktop.start("xev", "-geometry", "200x200+20+400")
    wait_for(lambda: desktop.focused("Event Tester"), "a window that has the keyboard")
    area = desktop.card(FOCUS)
    desktop.wait_until_still()
    bare = desktop.picture(*area)
    desktop.ask("FocusWidgets")
    wait_for(lambda: desktop.picture(*area) != bare, "a ring")
    desktop.press_keys("Escape")
    wait_for(lambda: desktop.focused("Event Tester"), "the keyboard back where it was")
    desktop.window_manager.send_signal(signal.SIGSTOP)
    desktop.ask("FocusWidgets")
    time.sleep(0.6)
    desktop.window_manager.send_signal(signal.SIGCONT)
    wait_for(lambda: desktop.focused("Focus"), "the keyboard in the focus widget again")
    desktop.wait_until_still()
    expect(desktop.picture(*area) != bare, "no ring")
    desktop.press_keys("Tab", "Tab", "Return")
    wait_for(lambda: [each["todoID"] for each in desktop.journal()] == ["demo-2"], "the second task in the journal")


def escape_gives_the_keyboard_away(desktop):
    desktop.show_sample_day()
    before = desktop.picture()
    desktop.focus_widgets()
    focused = wait_for(desktop.focused_card, "the keyboard on a card")
    desktop.key("Escape")
    wait_for(lambda: desktop.focused_card() != focused, "the keyboard elsewhere")
    wait_for(lambda: desktop.picture() == before, "the same screen as before")
    left, top, _, _ = desktop.card(FOCUS)
    desktop.move(left + 40, top + 130)  # keys that nobody wants go to what is under the pointer
    for name in ("space", "Tab", "space", "Return"):
        desktop.key(name)
    desktop.wait_until_still()
    expect(desktop.picture() == before, "a key changed the screen")
    expect(desktop.journal() == [], "a key completed a task after Escape")


def a_second_right_click_opens_the_menu_anew(desktop):
    """At once, as part of a double click."""
    desktop.show_sample_day()
    left, top, _, _ = desktop.card(FOCUS)
    windows = desktop.window_count()
    desktop.click(left + 40, top + 130, button=3)
    wait_for(lambda: desktop.window_count() > windows, "the menu")
    desktop.press_keys("Escape")
    wait_for(lambda: desktop.window_count() == windows, "no menu any more")
    desktop.click(left + 40, top + 130, button=3)
    desktop.wait_until_still()
    expect(desktop.window_count() > windows, "the second click opened no menu")


def a_closed_menu_leaves_no_ring(desktop):
    desktop.write_snapshot(dict(desktop.placeholder(), events=[]))  # so that nothing counts down
    desktop.start_widgets()
    area = desktop.card(FOCUS)
    left, top, _, _ = area
    bare = desktop.picture(*area)
    for place in ((left + 40, top + 130), (left + CIRCLE, top + FIRST_ROW)):
        open_menu(desktop, *place)
        desktop.press_keys("Down", "Escape")
        desktop.wait_until_still()
        expect(desktop.picture(*area) == bare, "a ring is left by a menu")
    desktop.focus_widgets()
    wait_for(lambda: desktop.picture(*area) != bare, "a ring")
    desktop.wait_until_still()
    ringed = desktop.picture(*area)
    open_menu(desktop, left + 40, top + 130)
    desktop.press_keys("Escape")
    wait_for(lambda: desktop.picture(*area) == ringed, "the ring after the menu")
    open_menu(desktop, left + 40, top + 130)
    desktop.start("xev", "-geometry", "200x200+20+400")
    wait_for(lambda: desktop.focused("Event Tester"), "the keyboard in another window")
    desktop.press_keys("Escape")
    wait_for(lambda: desktop.picture(*area) == bare, "no ring on a card that the keyboard has left")


def the_keyboard_goes_from_card_to_card_under_xfwm(desktop):
    desktop.replace_window_manager("xfwm4", "--replace", "--compositor=off")
    desktop.show_sample_day()
    desktop.start("xev", "-geometry", "200x200+20+400")
    other = wait_for(lambda: desktop.focused("Event Tester"), "a window that has the keyboard")
    for name in ("Focus", "Next up", "Triage", "Group today", "Focus"):
        desktop.ask("FocusWidgets")
        wait_for(lambda: desktop.focused(name), f"the keyboard in {name}")
    desktop.press_keys("Escape")
    wait_for(lambda: desktop.focused("Event Tester") == other, "the keyboard back where it was")
