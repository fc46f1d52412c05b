"""What happens while the widgets stand there: other data, other times, and floods of either."""
import socket
import time

from cards import FIRST_ROW, FOCUS, MAC_EPOCH, NEXT_UP, TITLE, TRIAGE
from desktop import Failed, OwnZone, expect, wait_for, zone_where
from screen_reader import ScreenReader
from session_bus import SettingsPortal


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


def another_zone_is_shown_at_once(desktop):
    rounds = 50 if desktop.is_long else 1
    zone = OwnZone(desktop)
    snapshot = desktop.placeholder()
    start = time.time() + 1800
    snapshot["events"] = [{"id": "e", "title": "Review", "start": start - MAC_EPOCH, "end": start - MAC_EPOCH + 600,
                           "linkedOpenTaskCount": 0}]
    desktop.write_snapshot(snapshot)
    reader = ScreenReader(desktop)
    zone.move_to(zone_where(start, 12))
    desktop.start_widgets(*zone.launcher)

    def shows(hour):
        return any(each.name.startswith(f"NEXT · {hour}:") for each in reader.card("Next up"))
    expect(shows(12), f"{reader.card('Next up')}")
    slowest = 0
    for _ in range(rounds):
        for hour, words in (13, 1), (12, 12):
            zone.move_to(zone_where(start, hour))
            slowest = max(slowest, seconds_until(lambda shown=words: shows(shown), "the hour there"))
    desktop.figure(f"{2 * rounds} changes of the zone: right after {slowest:.2f} seconds at most")
    expect(not desktop.is_long or slowest < 3, f"{slowest} seconds")


def a_bus_that_dies_and_comes_back_is_found_again(desktop):
    snapshot = desktop.placeholder()
    desktop.write_snapshot(snapshot)
    process = desktop.start_widgets()
    rounds = 50 if desktop.is_long else 2
    slowest = 0
    for number in range(rounds):
        before = desktop.picture(*desktop.card(TRIAGE))
        desktop.kill_bus()
        snapshot["triageCount"] = 100 + number
        desktop.write_snapshot(snapshot)
        desktop.start_bus()
        slowest = max(slowest, seconds_until(desktop.answers, "the widgets on the new bus"))
        desktop.ask("ReloadAllTimelines")
        slowest = max(slowest, seconds_until(lambda old=before: desktop.picture(*desktop.card(TRIAGE)) != old,
                                             "another triage card"))
        expect(process.poll() is None, "the program ended")
    desktop.figure(f"{rounds} dead buses: each step took {slowest:.2f} seconds at most")
    expect(not desktop.is_long or slowest < 3, f"{slowest} seconds")


def seconds_until(condition, what):
    begin = time.monotonic()
    wait_for(condition, what)
    return time.monotonic() - begin


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


def floods_of_reloads_and_themes_leave_the_memory_flat(desktop):
    portal = SettingsPortal(desktop)
    process = desktop.show_sample_day()

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
