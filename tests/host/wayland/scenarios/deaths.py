"""What is left when the compositor dies."""
import pathlib
import threading
import time

from cards import CIRCLE, FIRST_ROW, FOCUS, ROW
from desktop import expect, wait_for
from sessions import completed, start


def restart_rule():
    """When the user unit starts the program anew, and after how many seconds."""
    unit = pathlib.Path(__file__).parents[4] / "packaging" / "vantel-widgets.service.in"
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


def nothing_is_lost_when_the_compositor_dies(desktop):
    first = start(desktop)
    saved = (desktop.state / "placements.json").read_bytes()
    left, top, _, _ = desktop.card(FOCUS)
    first.terminate()
    first.wait()
    supervisor = Supervisor(desktop)
    for number in range(20 if desktop.is_long else 5):
        wait_for(lambda: all(map(desktop.is_drawn, desktop.placements())), "four cards")
        desktop.wait_until_still()
        if number < 3:  # the rows that are left close up
            desktop.click(left + CIRCLE, top + FIRST_ROW + number * ROW // 2)
            wait_for(lambda: len(desktop.journal()) == number + 1, "a journal line")
        if number < 2:  # the third is not waited for: it may end with its line alone
            wait_for(lambda: f"demo-{number + 1}" in completed(desktop), "the stamp in the snapshot")
        desktop.kill_compositor()
        desktop.start_compositor()
        desktop.leave()
    wait_for(lambda: all(map(desktop.is_drawn, desktop.placements())), "four cards at the end")
    supervisor.is_ending = True
    # Which status says so is the toolkit's to choose; the user's service starts the program again for any but 0.
    expect(0 not in supervisor.statuses, f"it ended with {supervisor.statuses}")
    expect((desktop.state / "placements.json").read_bytes() == saved, "the placements changed")
    expect([each["todoID"] for each in desktop.journal()] == ["demo-1", "demo-2", "demo-3"],
           f"the journal has {desktop.journal()}")
    expect({"demo-1", "demo-2"} <= completed(desktop), f"completed is {completed(desktop)}")
