"""What several scenarios do in a session, and look at."""
import json
import subprocess

from cards import FOCUS, NEXT_UP, TRIAGE
from desktop import wait_for

GROUP = "VantelGroupTodayWidget"
BLUE = bytes([0, 0, 255])  # of the ordinary window


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


def place(desktop, *placements):
    """Writes where widgets stand: kind, family, and the distances from the upper left corner."""
    output = dict(desktop.make(), name=next(iter(desktop.outputs())))
    desktop.state.mkdir()
    (desktop.state / "placements.json").write_text(json.dumps({"version": 1, "placements": [
        {"id": f"00000000-0000-4000-8000-00000000000{number}", "kind": kind, "family": family, "monitor": output,
         "corner": "topLeft", "horizontal": left, "vertical": top}
        for number, (kind, family, left, top) in enumerate(placements)]}))


def open_menu(desktop, kind):
    left, top, _, _ = desktop.card(kind)
    desktop.move(left + 20, top + 150)
    desktop.wait_until_still()
    before = desktop.picture()
    desktop.click(left + 20, top + 150, button=3)
    wait_for(lambda: desktop.picture() != before, "a menu")
    desktop.wait_until_still()


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


def completed(desktop):
    return {each["id"] for each in desktop.snapshot()["tasks"] if each.get("completedAt")}
