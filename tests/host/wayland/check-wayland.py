#!/usr/bin/env python3
"""Uses the widgets in a Wayland session, where they stand on layers of the desktop.

    check-wayland.py WIDGETS VANTELCTL WINDOW SCENARIO    exit 1 with a sentence when the scenario does not come true, and
                                                          77 when this machine does not let it be tried
"""
import json
import os
import pathlib
import subprocess
import sys
import threading
import time

from desktop import Failed, Skipped, expect, wait_for
from wayland_desktop import DesktopWithoutLayers, LabwcDesktop, PanelDesktop, PluggableDesktop, WaylandDesktop

FOCUS, NEXT_UP, TRIAGE, GROUP = (
    "VantelFocusWidget", "VantelNextUpWidget", "VantelTriageWidget", "VantelGroupTodayWidget")
CIRCLE = 121  # points from the left edge of the medium focus card to its circles
FIRST_ROW, ROW = 37, 32  # from its upper edge to the middle of the first of four rows, and from row to row
BLUE = bytes([0, 0, 255])


def on(desktop_type):
    """Says which session a scenario needs."""
    def mark(scenario):
        scenario.desktop_type = desktop_type
        return scenario
    return mark


def paper(desktop, kind):
    """The colour of a card near its upper edge."""
    left, top, _, _ = desktop.card(kind)
    return desktop.color(left + 40, top + 5)


def still_day(desktop):
    """A day on which nothing counts down."""
    return dict(desktop.placeholder(), events=[])


def start(desktop, *arguments):
    desktop.write_snapshot(still_day(desktop))
    desktop.leave()
    return desktop.start_widgets(*arguments)


def stands(desktop, kind):
    """Whether the card of a kind reaches to each of its four edges, and no further."""
    left, top, width, height = desktop.card(kind)
    middle = (left + width // 2, top + height // 2)
    inside = [(left, middle[1]), (left + width - 1, middle[1]), (middle[0], top), (middle[0], top + height - 1)]
    outside = [(left - 1, middle[1]), (left + width, middle[1]), (middle[0], top - 1), (middle[0], top + height)]
    card = paper(desktop, kind)
    return all(desktop.color(*each) == card for each in inside) and not any(
        desktop.color(*each) == card for each in outside)


def open_window(desktop):
    """Opens an ordinary window, which fills the screen, and returns it and what it says."""
    said = desktop.folder / "said"
    with said.open("w") as output:
        window = subprocess.Popen([desktop.window_program, "normal"], stdin=subprocess.PIPE, stdout=output,
                                  stderr=subprocess.DEVNULL, env=dict(desktop.environment, QT_QPA_PLATFORM="wayland"))
    desktop.processes.append(window)
    wait_for(lambda: desktop.color(600, 400) == BLUE, "a window")
    return window, lambda: said.read_text().split("\n")


def four_widgets_stand_where_the_placements_say(desktop):
    start(desktop)
    for kind in (FOCUS, NEXT_UP, TRIAGE, GROUP):
        expect(stands(desktop, kind), f"{kind} does not stand at {desktop.card(kind)}")
    expect(desktop.color(20, 20) == desktop.background, "the desktop is covered")


@on(PanelDesktop)
def the_first_arrangement_leaves_room_for_a_panel(desktop):
    wait_for(lambda: desktop.color(2, 2) != desktop.background, "a panel")
    start(desktop)
    height = next(y for y in range(100) if desktop.color(2, y) == desktop.background)
    expect(desktop.placements()[0]["vertical"] == height + 24, f"a panel of {height}, and {desktop.placements()[0]}")
    expect(stands(desktop, FOCUS), "the card is elsewhere")
    desktop.tell("bar", "mode", "invisible")
    wait_for(lambda: desktop.color(2, 2) == desktop.background, "no panel")
    expect(stands(desktop, FOCUS), "the card moved with the panel")


def an_ordinary_window_stands_above_the_widgets(desktop):
    start(desktop)
    before = desktop.picture()
    window, _ = open_window(desktop)
    all_blue = BLUE * (desktop.width * 700)
    wait_for(lambda: desktop.picture(height=700) == all_blue, "a window over all cards")
    left, top, _, _ = desktop.card(FOCUS)
    desktop.click(left + 60, top + 60)
    desktop.leave()
    desktop.tell("workspace", "2")
    wait_for(lambda: desktop.picture() == before, "the cards on another workspace")
    desktop.tell("workspace", "1")
    wait_for(lambda: desktop.color(left + 60, top + 60) == BLUE, "the window over the cards again")
    window.terminate()
    wait_for(lambda: desktop.picture() == before, "the cards as before")


def a_click_on_a_circle_completes_the_task(desktop):
    start(desktop)
    left, top, _, _ = desktop.card(FOCUS)
    desktop.click(left + CIRCLE, top + FIRST_ROW)
    wait_for(desktop.journal, "a journal line")
    expect([(each["action"], each["todoID"]) for each in desktop.journal()] == [("completeTodo", "demo-1")],
           f"the journal has {desktop.journal()}")
    wait_for(lambda: desktop.snapshot()["tasks"][0].get("completedAt"), "the stamp in the snapshot")


def place(desktop, *placements):
    """Writes where widgets stand: kind, family, and the distances from the upper left corner."""
    output = dict(desktop.make(), name=next(iter(desktop.outputs())))
    desktop.state.mkdir()
    (desktop.state / "placements.json").write_text(json.dumps({"version": 1, "placements": [
        {"id": f"00000000-0000-4000-8000-00000000000{number}", "kind": kind, "family": family, "monitor": output,
         "corner": "topLeft", "horizontal": left, "vertical": top}
        for number, (kind, family, left, top) in enumerate(placements)]}))


def clicks_go_through_the_shadow_of_a_card(desktop):
    triage = 300 + FIRST_ROW - 12 - 170  # so that its shadow, but not the card, lies over the first two circles
    above = (TRIAGE, "systemSmall", 100 + CIRCLE - 80, triage)
    below = (FOCUS, "systemMedium", 100, 300)
    last = (TRIAGE, "systemSmall", 700, 300)
    place(desktop, above, below, last, above)
    start(desktop)
    desktop.click(100 + CIRCLE, 300 + FIRST_ROW)
    wait_for(desktop.journal, "a journal line")


def a_dragged_widget_stays_where_it_was_dropped(desktop):
    process = start(desktop)
    left, top, _, _ = desktop.card(TRIAGE)
    grip, color = (left + 120, top + 150), paper(desktop, TRIAGE)
    desktop.drag_to(grip, (grip[0] - 700, grip[1] + 200))
    wait_for(lambda: desktop.color(left - 700 + 60, top + 200 + 20) == color, "the card under the mouse")
    wait_for(lambda: desktop.color(left + 60, top + 10) == desktop.background, "no card where it was")
    desktop.release()
    desktop.leave()
    wait_for(lambda: desktop.card(TRIAGE)[:2] != (left, top), "another place of the triage card")
    wait_for(lambda: stands(desktop, TRIAGE), "the card at its place")
    desktop.wait_until_still()
    moved, picture = desktop.card(TRIAGE), desktop.picture()
    expect(abs(moved[0] - left + 700) <= 24 and abs(moved[1] - top - 200) <= 24, f"it stands at {moved}")
    expect(desktop.journal() == [], "the drag pressed something")
    process.terminate()
    expect(process.wait(5) == 0, "the program did not end well")
    desktop.start_widgets()
    wait_for(lambda: desktop.picture() == picture, "the same screen as before the restart")


def open_menu(desktop, kind):
    left, top, _, _ = desktop.card(kind)
    desktop.move(left + 20, top + 150)
    desktop.wait_until_still()
    before = desktop.picture()
    desktop.click(left + 20, top + 150, button=3)
    wait_for(lambda: desktop.picture() != before, "a menu")
    desktop.wait_until_still()


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


def rounds(short, long):
    """How often to do something: long where somebody asks for it."""
    return long if os.environ.get("VANTEL_SOAK") else short


def on_output(desktop, placement, output):
    """Where a card is, and a point of the desktop beside it."""
    rectangle = desktop.outputs()[output]
    width = 364 if placement["family"] == "systemMedium" else 170
    left = rectangle["x"] + (placement["horizontal"] if placement["corner"].endswith("Left")
                             else rectangle["width"] - placement["horizontal"] - width)
    top = rectangle["y"] + (placement["vertical"] if placement["corner"].startswith("top")
                            else rectangle["height"] - placement["vertical"] - 170)
    return left, top, width, 170


def all_stand(desktop, owners):
    """Whether each widget is drawn on the output that has it, and nothing beside it. Owners are names of outputs."""
    active = desktop.outputs()
    for placement, output in zip(desktop.placements(), owners):
        if output not in active:
            return False
        left, top, width, height = on_output(desktop, placement, output)
        beside = [desktop.color(left + width + 1, top + height // 2), desktop.color(left - 2, top + height // 2)]
        if len(set(desktop.picture(left, top, width, height))) < 20 or desktop.color(left + 40, top + 3) in beside:
            return False
    return True


def expect_flat(memory):
    """Nothing that grows for as long as the program runs. The first turns fill caches."""
    warm = memory[len(memory) // 3]
    print(f"{len(memory)} turns; {memory[0]} bytes, {warm}, {memory[-1]}")
    expect(memory[-1] - warm < 6_000_000, f"the memory grew from {warm} to {memory[-1]}")


def arrange_on_two_outputs(desktop):
    """Two widgets on each of two outputs, whose names it returns."""
    first, second = [*desktop.outputs(), desktop.plug()]
    places = [(FOCUS, "systemMedium", first, "topRight"), (TRIAGE, "systemSmall", first, "bottomLeft"),
              (NEXT_UP, "systemSmall", second, "topRight"), (GROUP, "systemMedium", second, "bottomLeft")]
    desktop.state.mkdir()
    (desktop.state / "placements.json").write_text(json.dumps({"version": 1, "placements": [
        {"id": f"00000000-0000-4000-8000-00000000000{number}", "kind": kind, "family": family, "corner": corner,
         "monitor": dict(desktop.make(), name=output), "horizontal": 24, "vertical": 24}
        for number, (kind, family, output, corner) in enumerate(places)]}))
    return first, second


@on(PluggableDesktop)
def widgets_come_back_whatever_happens_to_outputs(desktop):
    first, second = arrange_on_two_outputs(desktop)
    desktop.write_snapshot(still_day(desktop))
    process = desktop.start(desktop.widgets)
    saved = desktop.placements()

    def check(what):
        wait_for(lambda: all_stand(desktop, [first, first, second, second]), f"four cards after {what}")
        expect(process.poll() is None, f"the program ended after {what}")
    check("the start")
    memory = []
    for turn in range(rounds(30, 200)):
        if turn % 4 == 3:
            desktop.unplug(second)
            wait_for(lambda: all_stand(desktop, [first, first]), "two cards on the other output")
            second = desktop.plug()
        else:
            desktop.tell("output", second, "scale", ["1.5", "2", "1"][turn % 4])
        check(f"change {turn}")
        memory.append(desktop.memory(process))
    expect(desktop.placements() == saved, f"the placements are {desktop.placements()}")
    expect_flat(memory)


@on(PluggableDesktop)
def widgets_come_back_after_there_was_no_output(desktop):
    process = start(desktop)
    saved, memory, output = desktop.placements(), [], [*desktop.outputs()][0]
    for turn in range(rounds(10, 100)):
        desktop.unplug(output)
        output = desktop.plug()
        wait_for(lambda: all_stand(desktop, [output] * 4), f"four cards after turn {turn}")
        expect(process.poll() is None, f"the program ended after turn {turn}")
        memory.append(desktop.memory(process))
    expect(desktop.placements() == saved, f"the placements are {desktop.placements()}")
    expect_flat(memory)


@on(PluggableDesktop)
def a_widget_can_be_dragged_to_another_output(desktop):
    first, second = arrange_on_two_outputs(desktop)
    desktop.write_snapshot(still_day(desktop))
    desktop.start(desktop.widgets)
    wait_for(lambda: all_stand(desktop, [first, first, second, second]), "four cards")
    desktop.resize()
    triage = desktop.placements()[1]
    left, top, _, _ = on_output(desktop, triage, first)
    middle = desktop.outputs()[second]["x"] + 600, 300
    desktop.drag((left + 120, top + 150), (middle[0] + 35, middle[1] + 65))
    wait_for(lambda: desktop.placements()[1]["monitor"]["name"] == second, "a placement on the other output")
    desktop.leave()
    wait_for(lambda: all_stand(desktop, [first, second, second, second]), "four cards after the drag")


def restart_rule():
    """When the user unit starts the program anew, and after how many seconds."""
    unit = pathlib.Path(__file__).parents[3] / "packaging" / "vantel-widgets.service.in"
    settings = dict(line.split("=", 1) for line in unit.read_text().splitlines() if "=" in line)
    expect(settings["Restart"] == "on-failure", "the unit does not start it anew")
    return float(settings["RestartSec"])


class Supervisor:
    """Starts the widgets anew when they fail, as the user unit does."""

    def __init__(self, desktop):
        self.desktop, self.pause, self.statuses, self.is_ending = desktop, restart_rule(), [], False
        self.thread = threading.Thread(target=self.run, daemon=True)
        self.thread.start()

    def run(self):
        while not self.is_ending:
            process = self.desktop.start(self.desktop.widgets)
            self.statuses.append(process.wait())
            self.desktop.processes.remove(process)
            if self.statuses[-1] == 0:
                return
            time.sleep(self.pause)


def completed(desktop):
    return {each["id"] for each in desktop.snapshot()["tasks"] if each.get("completedAt")}


def nothing_is_lost_when_the_compositor_dies(desktop):
    first = start(desktop)
    saved = (desktop.state / "placements.json").read_bytes()
    left, top, _, _ = desktop.card(FOCUS)
    first.terminate()
    first.wait()
    supervisor = Supervisor(desktop)
    for number in range(rounds(5, 20)):
        wait_for(lambda: all(map(desktop.is_drawn, desktop.placements())), "four cards", 30)
        desktop.wait_until_still()
        if number < 3:  # the rows that are left close up
            desktop.click(left + CIRCLE, top + FIRST_ROW + number * ROW // 2)
            wait_for(lambda: len(desktop.journal()) == number + 1, "a journal line")
        if number < 2:  # the third is not waited for: it may end with its line alone
            wait_for(lambda: f"demo-{number + 1}" in completed(desktop), "the stamp in the snapshot")
        desktop.kill_compositor()
        desktop.start_compositor()
        desktop.leave()
    wait_for(lambda: all(map(desktop.is_drawn, desktop.placements())), "four cards at the end", 30)
    supervisor.is_ending = True
    # Which status says so is the toolkit's to choose; the user's service starts the program again for any but 0.
    expect(0 not in supervisor.statuses, f"it ended with {supervisor.statuses}")
    expect((desktop.state / "placements.json").read_bytes() == saved, "the placements changed")
    expect([each["todoID"] for each in desktop.journal()] == ["demo-1", "demo-2", "demo-3"],
           f"the journal has {desktop.journal()}")
    expect({"demo-1", "demo-2"} <= completed(desktop), f"completed is {completed(desktop)}")


@on(LabwcDesktop)
def under_labwc_they_stand_in_place_and_complete_tasks(desktop):
    four_widgets_stand_where_the_placements_say(desktop)
    left, top, _, _ = desktop.card(FOCUS)
    desktop.click(left + CIRCLE, top + FIRST_ROW)
    wait_for(desktop.journal, "a journal line")


@on(LabwcDesktop)
def under_labwc_a_dragged_widget_stays_where_it_was_dropped(desktop):
    a_dragged_widget_stays_where_it_was_dropped(desktop)


@on(LabwcDesktop)
def under_labwc_a_menu_opens_and_closes(desktop):
    a_menu_opens_above_all_and_closes_by_a_click_beside_it(desktop)


@on(DesktopWithoutLayers)
def without_layers_the_widgets_stand_on_the_x_server(desktop):
    desktop.write_snapshot(still_day(desktop))
    desktop.start(desktop.widgets)
    wait_for(lambda: len(desktop.placements()) == 4, "four placements")
    cards = {}
    for kind, name in ((FOCUS, "Focus"), (NEXT_UP, "Next up"), (TRIAGE, "Triage"), (GROUP, "Group today")):
        cards[name] = wait_for(lambda name=name: desktop.window(name), f"the window of {name}")
        left, top, _, _ = desktop.card(kind)
        place = (left - 24, top - 24)  # the shadow is a part of the window
        wait_for(lambda card=cards[name], place=place: desktop.position(card) == place, f"{name} at {place}")
        wait_for(lambda card=cards[name]: desktop.colors(card) > 20, f"a drawn card of {name}")
    environment = dict(desktop.environment, QT_QPA_PLATFORM="xcb")
    desktop.processes.append(subprocess.Popen([desktop.window_program, "normal"], stdin=subprocess.PIPE,
                                              stdout=subprocess.DEVNULL, env=environment))
    below = set(cards.values())
    wait_for(lambda: len(desktop.stacking()) == 5, "five windows")
    for card in below:
        desktop.run("xdotool", "windowraise", str(card))
    time.sleep(0.5)  # for what should not happen there is nothing to wait for
    expect(set(desktop.stacking()[:4]) == below, f"from below there are {desktop.stacking()}, cards are {below}")


@on(DesktopWithoutLayers)
def without_layers_nobody_can_ask_for_them(desktop):
    answer = subprocess.run([desktop.widgets, "--backend", "wayland"], env=desktop.environment, text=True,
                            capture_output=True, timeout=20, check=False)
    expect(answer.returncode == 1 and "zwlr_layer_shell_v1" in answer.stderr, f"it answered {answer}")


def main():
    widgets, vantelctl, window, scenario = sys.argv[1:]
    desktop_type = getattr(globals()[scenario], "desktop_type", WaylandDesktop)
    try:
        with desktop_type(str(pathlib.Path(widgets).resolve()), str(pathlib.Path(vantelctl).resolve())) as desktop:
            desktop.window_program = str(pathlib.Path(window).resolve())
            globals()[scenario](desktop)
    except Failed as failure:
        sys.exit(f"{scenario}: {failure}")
    except Skipped as reason:
        print(f"skipped: {reason}")
        sys.exit(77)


main()
