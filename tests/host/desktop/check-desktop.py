#!/usr/bin/env python3
"""Uses the widgets as a user would, on a desktop of their own.

    check-desktop.py WIDGETS VANTELCTL SCENARIO [--long]
        exit 1 with a sentence when the scenario does not come true, and 77 when this machine does not let it be tried;
        some scenarios last longer and do more in the long form, and print their figures
"""
import pathlib
import signal
import socket
import subprocess
import sys
import time

from desktop import Desktop, Failed, OwnZone, Skipped, expect, wait_for
from screen_reader import ScreenReader
from session_bus import SettingsPortal

FOCUS, NEXT_UP, TRIAGE = "VantelFocusWidget", "VantelNextUpWidget", "VantelTriageWidget"
CIRCLE = 121  # points from the left edge of the medium focus card to its circles
TITLE = 160  # and to the titles beside them
FIRST_ROW, ROW = 37, 32  # from its upper edge to the middle of the first of four rows, and from row to row
MAC_EPOCH = 978307200


def row(desktop, number, rows):
    """The pixels of the title in a row of the focus card, where there are so many rows in all."""
    left, top, _, _ = desktop.card(FOCUS)
    middle = top + FIRST_ROW + (4 - rows) * ROW // 2 + number * ROW
    return desktop.picture(left + TITLE - 10, middle - 10, 170, 20)


def a_click_on_a_circle_completes_the_task(desktop):
    desktop.write_snapshot(desktop.placeholder())
    desktop.start_widgets()
    left, top, _, _ = desktop.card(FOCUS)
    second = row(desktop, 1, 4)
    desktop.click(left + CIRCLE, top + FIRST_ROW)
    wait_for(desktop.journal, "a journal line")
    expect([(each["action"], each["todoID"]) for each in desktop.journal()] == [("completeTodo", "demo-1")],
           f"the journal has {desktop.journal()}")
    wait_for(lambda: desktop.snapshot()["tasks"][0].get("completedAt"), "the stamp in the snapshot")
    wait_for(lambda: row(desktop, 0, 3) == second, "the second task in the first row")


def two_clicks_on_one_circle_complete_one_task(desktop):
    desktop.write_snapshot(desktop.placeholder())
    desktop.start_widgets()
    left, top, _, _ = desktop.card(FOCUS)
    desktop.move(left + CIRCLE, top + FIRST_ROW)
    desktop.run("xdotool", "click", "--repeat", "2", "--delay", "1", "1")
    wait_for(desktop.journal, "a journal line")
    desktop.wait_until_still()
    expect({each["todoID"] for each in desktop.journal()} == {"demo-1"} and len(desktop.journal()) == 1,
           f"the journal has {desktop.journal()}")


def keys_walk_a_card_and_complete_a_task(desktop):
    desktop.write_snapshot(desktop.placeholder())
    desktop.start_widgets()
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


def escape_gives_the_keyboard_away(desktop):
    desktop.write_snapshot(desktop.placeholder())
    desktop.start_widgets()
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


def open_menu(desktop, x, y):
    windows = desktop.window_count()
    desktop.click(x, y, button=3)
    wait_for(lambda: desktop.window_count() > windows, "the menu")
    desktop.wait_until_still()


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


def a_reload_over_the_bus_shows_the_new_snapshot(desktop):
    snapshot = desktop.placeholder()
    desktop.write_snapshot(snapshot)
    desktop.start_widgets()
    before = desktop.picture(*desktop.card(TRIAGE))
    snapshot["triageCount"] = 0
    desktop.write_snapshot(snapshot)
    expect(desktop.picture(*desktop.card(TRIAGE)) == before, "the card changed without being asked")
    desktop.run(desktop.vantelctl, "reload")
    wait_for(lambda: desktop.picture(*desktop.card(TRIAGE)) != before, "another triage card")


def a_dragged_widget_stays_where_it_was_dropped(desktop):
    desktop.write_snapshot(dict(desktop.placeholder(), events=[]))  # so that nothing counts down
    process = desktop.start_widgets()
    left, top, _, _ = desktop.card(TRIAGE)
    grip = (left + 120, top + 120)
    desktop.drag(grip, (grip[0] - 700, grip[1] + 200))
    wait_for(lambda: desktop.card(TRIAGE)[:2] != (left, top), "another place of the triage card")
    desktop.wait_until_still()
    moved, picture = desktop.card(TRIAGE), desktop.picture()
    expect(abs(moved[0] - left + 700) <= 24 and abs(moved[1] - top - 200) <= 24, f"it stands at {moved}")
    process.terminate()
    expect(process.wait(5) == 0, "the program did not end well")
    desktop.start_widgets()
    expect(desktop.card(TRIAGE) == moved, "it stands elsewhere after a restart")
    wait_for(lambda: desktop.picture() == picture, "the same screen as before the restart")


def two_widgets_of_one_kind_are_told_as_two(desktop):
    desktop.write_snapshot(desktop.placeholder())
    desktop.place((TRIAGE, "systemSmall"), (FOCUS, "systemSmall"), (TRIAGE, "systemSmall"), (NEXT_UP, "systemSmall"))
    desktop.start_widgets()
    expect(desktop.ask("CurrentConfigurations") == [(TRIAGE, "systemSmall"), (FOCUS, "systemSmall"),
                                                    (TRIAGE, "systemSmall"), (NEXT_UP, "systemSmall")],
           f"the bus tells of {desktop.ask('CurrentConfigurations')}")


def a_second_start_leaves_the_first_one_alone(desktop):
    desktop.write_snapshot(desktop.placeholder())
    first = desktop.start_widgets()
    second = desktop.start(desktop.widgets)
    expect(second.wait(10) == 0, "the second start did not end with 0")
    expect(first.poll() is None, "the first one ended")


def record_links(desktop):
    """Installs an application for the links that writes down what it is given."""
    record = desktop.folder / "links.txt"
    desktop.install_companion(f'printf "%s\\n" "$@" >>"{record}"')
    return lambda: record.read_text().split() if record.exists() else []


def clicks_open_the_links_of_the_companion(desktop):
    links = record_links(desktop)
    desktop.write_snapshot(desktop.placeholder())
    desktop.start_widgets()
    left, top, _, _ = desktop.card(FOCUS)
    desktop.click(left + TITLE, top + FIRST_ROW)
    wait_for(lambda: links() == ["vantel://todo?id=demo-1"], "the task's link")
    desktop.click(left + 40, top + 130)
    wait_for(lambda: links() == ["vantel://todo?id=demo-1", "vantel://focus"], "the widget's own link")
    expect(desktop.journal() == [], "a click beside the circle completed a task")


def without_an_application_for_a_link_the_widget_says_so(desktop):
    desktop.write_snapshot(desktop.placeholder())
    desktop.start_widgets()
    left, top, width, height = desktop.card(FOCUS)
    before = desktop.picture(left, top + 120, width, height - 120)
    desktop.click(left + 40, top + 100)
    wait_for(lambda: desktop.picture(left, top + 120, width, height - 120) != before, "a notice on the card")


def only_the_clicked_one_of_two_widgets_says_what_went_wrong(desktop):
    desktop.write_snapshot(desktop.placeholder())
    desktop.place((TRIAGE, "systemSmall"), (FOCUS, "systemSmall"), (TRIAGE, "systemSmall"), (NEXT_UP, "systemSmall"))
    desktop.start_widgets()
    first, _, second, _ = (desktop.area(each) for each in desktop.placements())
    before, untouched = desktop.picture(*second), desktop.picture(*first)
    desktop.click(second[0] + 100, second[1] + 100)
    wait_for(lambda: desktop.picture(*second) != before, "a notice on the clicked card")
    desktop.wait_until_still()
    expect(desktop.picture(*first) == untouched, "the other card of the kind says it too")


def a_meeting_that_starts_is_shown_at_once(desktop):
    snapshot = desktop.placeholder()
    desktop.write_snapshot(snapshot)
    desktop.start_widgets()
    left, top, _, _ = desktop.card(NEXT_UP)

    def is_dark():
        return desktop.picture(left + 85, top + 160, 1, 1) == bytes([0x1B, 0x1A, 0x17])
    expect(not is_dark(), "the card is dark long before a meeting")
    start = time.time() - MAC_EPOCH + 8
    snapshot["events"] = [{"id": "e", "title": "Review", "start": start, "end": start + 600,
                           "linkedOpenTaskCount": 0, "calendarColorHex": "#336699"}]
    desktop.write_snapshot(snapshot)
    desktop.run(desktop.vantelctl, "reload")
    wait_for(is_dark, "the dark card of a meeting that is about to start")
    wait_for(lambda: not is_dark(), "the light card of a running meeting")
    late = time.time() - MAC_EPOCH - start
    expect(late >= 0, f"it came {-late} seconds too early")


def a_stopped_process_with_the_lock_stops_nobody(desktop):
    desktop.write_snapshot(desktop.placeholder())
    desktop.start_widgets()
    holder = desktop.hold_lock()
    holder.send_signal(signal.SIGSTOP)
    left, top, _, _ = desktop.card(FOCUS)
    first, second = row(desktop, 0, 4), row(desktop, 1, 4)
    desktop.click(left + CIRCLE, top + FIRST_ROW)
    wait_for(lambda: row(desktop, 0, 4) != first, "the pressed row drawn pending")
    windows, slowest, end = desktop.window_count(), 0.0, time.monotonic() + (60 if desktop.is_long else 3)
    while time.monotonic() < end:
        desktop.ask("ReloadAllTimelines")
        begin = time.monotonic()
        desktop.click(left + 40, top + 130, button=3)
        wait_for(lambda: desktop.window_count() > windows, "the menu")
        slowest = max(slowest, time.monotonic() - begin)
        desktop.press_keys("Escape")
        wait_for(lambda: desktop.window_count() == windows, "no menu")
        time.sleep(0.5)
    expect(not desktop.snapshot()["tasks"][0].get("completedAt"), "the snapshot was written beside the lock")
    desktop.figure(f"the slowest menu after {slowest:.2f} s")
    holder.kill()
    wait_for(lambda: desktop.snapshot()["tasks"][0].get("completedAt"), "the stamp in the snapshot")
    wait_for(lambda: row(desktop, 0, 3) == second, "the second task in the first row")
    expect([each["todoID"] for each in desktop.journal()] == ["demo-1"], f"the journal has {desktop.journal()}")


def a_lock_that_is_never_freed_stops_nobody(desktop):
    desktop.write_snapshot(desktop.placeholder())
    process = desktop.start_widgets()
    holder = desktop.hold_lock()
    left, top, _, _ = desktop.card(FOCUS)
    first = row(desktop, 0, 4)
    desktop.click(left + CIRCLE, top + FIRST_ROW)
    wait_for(lambda: row(desktop, 0, 4) != first, "the pressed row drawn pending")
    windows = desktop.window_count()
    desktop.click(left + 40, top + 130, button=3)
    wait_for(lambda: desktop.window_count() > windows, "the menu")
    process.send_signal(signal.SIGTERM)
    expect(process.wait(5) == 0, "the program did not end well")
    expect(holder.poll() is None, "the lock was freed")


def titles_cause_no_request(desktop):
    with socket.create_server(("127.0.0.1", 0)) as listener:
        listener.settimeout(3)
        image = f'<img src="http://127.0.0.1:{listener.getsockname()[1]}/x">'
        snapshot = desktop.placeholder()
        for record in snapshot["tasks"] + snapshot["events"] + snapshot["horizon"]:
            for key in ("summary", "title", "location", "subject", "label"):
                if key in record:
                    record[key] = image
        desktop.write_snapshot(snapshot)
        process = desktop.start_widgets()
        left, top, _, _ = desktop.card(FOCUS)
        desktop.move(left + TITLE, top + FIRST_ROW)
        try:
            listener.accept()
        except TimeoutError:
            expect(process.poll() is None, "the program ended")
            return
        raise Failed("somebody asked for the image of a title")


def a_screen_reader_hears_all_that_the_cards_say(desktop):
    desktop.write_snapshot(desktop.placeholder())
    reader = ScreenReader(desktop)
    desktop.start_widgets()
    for name in ("Focus", "Next up", "Triage", "Group today"):
        card, *inside = reader.card(name)
        expect(card.role == "panel" and card.name == name and "Press" in card.actions, f"the card is {card}")
        expect(inside and all(each.name for each in inside), f"without a name on {name}: {inside}")
        for each in inside:
            actions = {"label": [], "link": ["Press"], "push button": ["Press"]}.get(each.role)
            expect(each.actions == actions, f"on {name}: {each}")
    expect([each.name for each in reader.card("Triage")] == ["Triage", "TRIAGE", "12 to review", "~4 min · opens deck"],
           f"on the triage card: {reader.card('Triage')}")
    task = desktop.placeholder()["tasks"][0]["summary"]
    words = [(each.role, each.name) for each in reader.card("Focus")[1:7]]
    expect(words == [("label", "FOCUS"), ("label", "4 due"), ("label", "2 overdue"), ("label", "2 done"),
                     ("push button", f"Complete: {task}"), ("link", task)], f"on the focus card: {words}")


def a_screen_reader_presses_what_it_hears(desktop):
    links = record_links(desktop)
    desktop.write_snapshot(desktop.placeholder())
    desktop.start_widgets()
    reader = ScreenReader(desktop)
    wait_for(lambda: any(each.name == "Focus" for each in reader.everything()), "a card that can be heard")
    card = reader.card("Focus")
    reader.press(card[0])
    wait_for(lambda: links() == ["vantel://focus"], "the widget's own link")
    reader.press(next(each for each in card if each.role == "link"))
    wait_for(lambda: links() == ["vantel://focus", "vantel://todo?id=demo-1"], "the task's link")
    complete = next(each for each in card if each.role == "push button")
    reader.press(complete)
    wait_for(lambda: [each["todoID"] for each in desktop.journal()] == ["demo-1"], "a journal line")
    wait_for(lambda: complete.name not in [each.name for each in reader.card("Focus")], "the task gone")


def a_screen_reader_hears_what_went_wrong(desktop):
    desktop.write_snapshot(desktop.placeholder())
    reader = ScreenReader(desktop)
    desktop.start_widgets()
    reader.press(reader.card("Focus")[0])
    wait_for(lambda: ("alert message", "No application is installed that opens this.")
             in [(each.role, each.name) for each in reader.card("Focus")], "a notice that can be heard")


def keys_alone_complete_a_task(desktop):
    desktop.write_snapshot(desktop.placeholder())
    desktop.start_widgets()
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


def a_dark_desktop_darkens_the_cards_at_once(desktop):
    portal = SettingsPortal(desktop)
    desktop.write_snapshot(desktop.placeholder())
    desktop.start_widgets()
    left, top, _, _ = desktop.card(FOCUS)

    def is_dark():
        return sum(desktop.picture(left + 8, top + 85, 1, 1)) < 3 * 128
    expect(not is_dark(), "the card was dark at once")
    for now_dark in (True, False):
        portal.darken(now_dark)
        wait_for(lambda: is_dark() == now_dark, "a dark card" if now_dark else "a light card")


def expect_cards_twice_as_large(desktop, margin=48):
    """With so many pixels from the edges of the screen."""
    desktop.write_snapshot(desktop.placeholder())
    desktop.place((FOCUS, "systemSmall"))
    desktop.start_widgets(cards=1)
    width = height = 2 * 170
    left, top = desktop.width - margin - width, margin
    middle, centre = top + height // 2, left + width // 2
    inside = [(left + 3, middle), (left + width - 4, middle), (centre, top + 3), (centre, top + height - 4)]
    outside = [(left - 3, middle), (left + width + 2, middle), (centre, top - 3), (centre, top + height + 2)]

    def is_card(place):
        return desktop.picture(*place, 1, 1) != bytes(3)
    wait_for(lambda: all(map(is_card, inside)) and not any(map(is_card, outside)), "a card of 340 by 340 pixels")
    rows = [desktop.picture(left, top + y, width, 1) for y in range(60, 100)]
    expect(any(rows[y] != rows[y + 1] for y in range(0, 40, 2)) and any(rows[y] != rows[y + 1] for y in range(1, 39, 2)),
           "pixels are doubled")


def cards_are_twice_as_large_where_the_program_is_asked_to(desktop):
    desktop.environment["QT_SCALE_FACTOR"] = "2"
    expect_cards_twice_as_large(desktop)


def cards_are_twice_as_large_at_twice_the_resolution(desktop):
    desktop.set_resolution(192)
    expect_cards_twice_as_large(desktop)


def the_scale_of_texts_counts_once_where_the_resolution_has_it(desktop):
    SettingsPortal(desktop).text_scale = 2.0
    desktop.set_resolution(192)
    expect_cards_twice_as_large(desktop)


def the_scale_of_texts_enlarges_cards(desktop):
    SettingsPortal(desktop).text_scale = 2.0
    expect_cards_twice_as_large(desktop, margin=24)


def floods_of_reloads_and_themes_leave_the_memory_flat(desktop):
    portal = SettingsPortal(desktop)
    desktop.write_snapshot(desktop.placeholder())
    process = desktop.start_widgets()

    def flood(reloads, themes):
        for _ in range(reloads):
            desktop.ask("ReloadAllTimelines")
            if desktop.is_long:
                time.sleep(0.1)  # those that come faster are one
        for number in range(themes):
            portal.darken(number % 2 == 0)
            desktop.ask("CurrentConfigurations")
        desktop.wait_until_still()
        return desktop.memory(process)
    before = flood(500, 50)
    reloads, themes = (10000, 1000) if desktop.is_long else (2000, 200)
    after = flood(reloads, themes)
    desktop.figure(f"{reloads} reloads and {themes} changes of the theme: {before} bytes became {after}")
    expect(after - before < 6_000_000, f"{before} bytes became {after}")


def unreadable_placements_are_set_aside(desktop):
    desktop.write_snapshot(desktop.placeholder())
    desktop.state.mkdir()
    (desktop.state / "placements.json").write_text("{")
    desktop.start(desktop.widgets)

    def set_aside():
        return [each for each in desktop.state.iterdir() if each.name != "placements.json"]
    wait_for(lambda: len(set_aside()) == 1 and (desktop.state / "placements.json").exists(), "both files")
    expect(set_aside()[0].read_text() == "{", f"{set_aside()[0]} is not the old file")
    expect(len(desktop.placements()) == 4, f"the placements are {desktop.placements()}")


def zone_where(moment, hour):
    """A zone without summer time whose clocks show that hour at a moment."""
    ahead = (hour - time.gmtime(moment).tm_hour + 11) % 24 - 11
    return f"Etc/GMT{-ahead:+d}" if ahead else "Etc/GMT"


def another_zone_is_shown_at_once(desktop):
    zone = OwnZone(desktop)
    snapshot = desktop.placeholder()
    start = time.time() + 1800
    snapshot["events"] = [{"id": "e", "title": "Review", "start": start - MAC_EPOCH, "end": start - MAC_EPOCH + 600,
                           "linkedOpenTaskCount": 0}]
    desktop.write_snapshot(snapshot)
    reader = ScreenReader(desktop)
    zone.move_to(zone_where(start, 12))
    desktop.start_widgets(*zone.launcher)
    expect(any(each.name.startswith("NEXT · 12:") for each in reader.card("Next up")), f"{reader.card('Next up')}")
    zone.move_to(zone_where(start, 13))
    wait_for(lambda: any(each.name.startswith("NEXT · 1:") for each in reader.card("Next up")), "the hour there")


def main():
    is_long = sys.argv[-1] == "--long"
    widgets, vantelctl, scenario = sys.argv[1:4]
    try:
        with Desktop(str(pathlib.Path(widgets).resolve()), str(pathlib.Path(vantelctl).resolve())) as desktop:
            desktop.is_long = is_long
            globals()[scenario](desktop)
    except Failed as failure:
        sys.exit(f"{scenario}: {failure}")
    except Skipped as reason:
        print(f"skipped: {reason}")
        sys.exit(77)


main()
