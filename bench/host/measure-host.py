#!/usr/bin/env python3
"""Measures the desktop host beside the smallest program of its shape and beside conky, all in one run.

    measure-host.py PROGRAMS [PART…]    PROGRAMS is the folder of the built programs; the parts are start, clicks,
                                        moments and idle, and all of them unless some are named
"""
import os
import pathlib
import statistics
import sys
import time

from desktop import Desktop, expect, wait_for
from screen import Pointer, Screen
from usage import kilobytes, processor_seconds, wake_ups

FOCUS, NEXT_UP = "VantelFocusWidget", "VantelNextUpWidget"
CIRCLE, FIRST_ROW = 121, 69  # points from the left and upper edge of the focus card of this day to its first circle
MAC_EPOCH = 978307200
ROUNDS = 25
SETTLED = 1.5  # seconds after which a program has done what it does at its start
CONKY = """conky.config = {{ own_window = true, own_window_type = 'desktop', double_buffer = true, use_xft = true,
  alignment = 'top_left', gap_x = {0}, gap_y = {1}, minimum_width = {2}, minimum_height = {3}, maximum_width = {2},
  border_width = 0, border_inner_margin = 0, border_outer_margin = 0, update_interval = 60,
  own_window_colour = '336699', own_window_argb_visual = false, font = 'sans-serif:size=10' }}
conky.text = [[Hello]]
"""


class Bench(Desktop):
    """A desktop whose screen and mouse are at hand without programs in between."""

    def start_display(self):
        super().start_display()
        self.screen = Screen(self.frame_buffer)
        self.pointer = Pointer(self.environment["DISPLAY"])

    def areas(self):
        return [self.area(each) for each in self.placements()]

    def end(self, processes):
        for process in processes:
            process.terminate()
        for process in processes:
            process.wait(10)
            self.processes.remove(process)

    def reload(self, snapshot):
        self.write_snapshot(snapshot)
        self.run(self.vantelctl, "reload")
        time.sleep(SETTLED)


# ---- the rivals

def widgets(desktop):
    return [desktop.start(desktop.widgets)]


def smallest(desktop):
    program = pathlib.Path(desktop.widgets).with_name("vantel_bench_windows")
    shadow = 24  # of a card; the window has room for it on every side
    return [desktop.start(str(program), *(f"{width + 2 * shadow}x{height + 2 * shadow}+{left - shadow}+{top - shadow}"
                                          for left, top, width, height in desktop.areas()))]


def conky(desktop):
    processes = []
    for number, area in enumerate(desktop.areas()):
        configuration = desktop.folder / f"conky-{number}"
        configuration.write_text(CONKY.format(*area))
        processes.append(desktop.start("conky", "--quiet", "--config", str(configuration)))
    return processes


def start_up(desktop, rival):
    """The milliseconds to the last first frame, and the memory once all is quiet."""
    bare = desktop.screen.glance(desktop.areas())
    begin = time.monotonic()
    processes = rival(desktop)
    frame = desktop.screen.first_picture(desktop.areas(), bare)
    time.sleep(SETTLED - 0.8)
    memory = sum(kilobytes(process) for process in processes)
    desktop.end(processes)
    time.sleep(0.3)
    return (frame - begin) * 1e3, memory / 1024


def start_ups(desktop):
    """The medians of each rival, all in turns."""
    rivals = (widgets, smallest, conky)
    desktop.end([desktop.start_widgets()])  # places the cards
    for rival in rivals:
        start_up(desktop, rival)  # reads the programs from the disk
    seen = {rival: [] for rival in rivals}
    for _ in range(ROUNDS):
        for rival in rivals:
            seen[rival].append(start_up(desktop, rival))
    return [[statistics.median(each) for each in zip(*seen[rival])] for rival in rivals]


# ---- the widgets alone

def seconds_of_now():
    return time.time() - MAC_EPOCH


def meeting(number, start, end):
    return {"id": f"e{number}", "title": f"Meeting {number}", "start": start, "end": end, "linkedOpenTaskCount": 0}


def day(desktop, meetings):
    """A day whose tasks are all overdue, so that nothing but its meetings makes a moment."""
    now = seconds_of_now()
    snapshot = desktop.placeholder()
    for number, task in enumerate(snapshot["tasks"]):
        task.update(id=f"task-{number}-{now}", deadline=now - 86400 * (number + 1))
    snapshot["events"] = meetings
    return snapshot


def idle(desktop, process, seconds, *meetings):
    desktop.reload(day(desktop, list(meetings)))
    time.sleep(2)
    return wake_ups(process, seconds)


def ticks(desktop, process):
    """The milliseconds of processor time for the moment in which a countdown's minutes change."""
    return statistics.median(tick(desktop, process) for _ in range(5))


def tick(desktop, process):
    moment = seconds_of_now() + 5
    desktop.reload(day(desktop, [meeting(1, moment + 1200, moment + 4800)]))
    time.sleep(max(0.0, moment - 0.5 - seconds_of_now()))
    before, used = desktop.screen.look([desktop.card(NEXT_UP)]), spent(process, 1.2)
    expect(desktop.screen.look([desktop.card(NEXT_UP)]) != before, "the countdown did not change")
    return used


def spent(process, seconds):
    before = processor_seconds(process)
    time.sleep(seconds)
    return (processor_seconds(process) - before) * 1e3


def meeting_starts(desktop, process):
    """The milliseconds of processor time for the start of a meeting."""
    first, pause, costs = seconds_of_now() + 8, 3, []
    starts = [first + pause * number for number in range(7)]
    desktop.reload(day(desktop, [meeting(number, start, start + pause) for number, start in enumerate(starts)]))
    for start in starts[1:]:
        time.sleep(max(0.0, start - 0.3 - seconds_of_now()))
        costs.append(spent(process, 1.3))
    return statistics.median(costs)


def clicks(desktop, count):
    """The milliseconds from a click on a circle to the row drawn pending, to the reloaded view, to its last frame."""
    return [statistics.median(each) for each in zip(*(click(desktop) for _ in range(count)))]


def click(desktop):
    desktop.reload(day(desktop, []))
    card = desktop.card(FOCUS)
    desktop.pointer.move(card[0] + CIRCLE, card[1] + FIRST_ROW)
    time.sleep(0.4)
    journal = len(desktop.journal())
    released = desktop.pointer.click()
    times = desktop.screen.changes([card], 0.8)
    wait_for(lambda: len(desktop.journal()) == journal + 1, "a journal line")
    return [(moment - released) * 1e3 for moment in (times[0], times[1], times[-1])]


def bare_sync(desktop):
    """The milliseconds of the two writes that a click makes durable, with nothing around them."""
    folder = desktop.folder / "bare"
    folder.mkdir()
    return statistics.median(timed(lambda: write_both(folder)) for _ in range(50))


def timed(action):
    begin = time.monotonic()
    action()
    return (time.monotonic() - begin) * 1e3


def write_both(folder):
    line = os.open(folder / "journal", os.O_WRONLY | os.O_APPEND | os.O_CREAT, 0o600)
    os.write(line, b"x" * 149 + b"\n")
    os.fdatasync(line)
    os.close(line)
    file = os.open(folder / "temporary", os.O_WRONLY | os.O_CREAT | os.O_TRUNC, 0o600)
    os.write(file, b"x" * 20_000)
    os.fsync(file)
    os.close(file)
    os.rename(folder / "temporary", folder / "snapshot")
    parent = os.open(folder, os.O_RDONLY | os.O_DIRECTORY)
    os.fsync(parent)
    os.close(parent)


# ---- the report

def report(name, measured, reference, value, allowed, unit):
    verdict = "OK" if value <= allowed else "OVER"
    print(f"{name:<52} {measured:>12} {reference:>22} {value:>8.2f} {unit:<2} {allowed:>8.2f} {unit:<2} {verdict}",
          flush=True)


def report_start(desktop):
    own, least, others = start_ups(desktop)
    for index, (what, unit) in enumerate((("exec to last first frame", "ms"), ("memory (PSS)", "MB"))):
        measured = f"{own[index]:.1f} {unit}"
        report(what, measured, f"smallest {least[index]:.1f} {unit}", own[index] / least[index], 1.3, "x")
        if index == 0:
            report(what, measured, f"conky {others[index]:.1f} {unit}", own[index] / others[index], 1, "x")
        else:
            print(f"{'':<52} {'':>12} {f'conky {others[index]:.1f} {unit}':>22}")


def report_idle(desktop):
    process = desktop.start_widgets()
    moments, switched = idle(desktop, process, 20)
    report("idle for 20 s, nothing to count down", f"{moments}", f"{switched} switches", moments, 0, "")
    start = seconds_of_now() + 1830
    moments, switched = idle(desktop, process, 65, meeting(1, start, start + 3600))
    report("idle for 65 s, a countdown of minutes", f"{moments}", f"{switched} switches", moments, 2, "")


def report_moments(desktop):
    process = desktop.start_widgets()
    second, start = ticks(desktop, process), meeting_starts(desktop, process)
    report("processor time: a minute of a countdown", f"{second:.2f} ms", "", second, 1, "ms")
    report("processor time: a meeting starts, with its crossfade", f"{start:.2f} ms", "", start, 1, "ms")


def report_clicks(desktop):
    desktop.start_widgets()
    pending, reloaded, last = clicks(desktop, 9)
    disk = bare_sync(desktop)
    report("click to the pending row", f"{pending:.1f} ms", "", pending, 1000 / 60, "ms")
    report("click to the reloaded view, first frame", f"{reloaded:.1f} ms", f"bare writes {disk:.1f} ms",
           reloaded - disk, 50, "ms")
    print(f"{'click to the end of its crossfade':<52} {f'{last:.1f} ms':>12}")


def main():
    programs, parts = pathlib.Path(sys.argv[1]).resolve(), sys.argv[2:] or ["start", "clicks", "moments", "idle"]
    print(f"{'budget':<52} {'measured':>12} {'reference':>22} {'stands at':>11} {'allowed':>11}", flush=True)
    for part in parts:
        with Bench(str(programs / "vantel-widgets"), str(programs / "vantelctl")) as desktop:
            desktop.write_snapshot(day(desktop, []))
            globals()["report_" + part](desktop)


main()
