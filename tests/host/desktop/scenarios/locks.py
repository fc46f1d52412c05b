"""Whoever holds the lock of the container, and however long, the widgets answer."""
import signal
import time

from cards import CIRCLE, FIRST_ROW, FOCUS, row
from desktop import expect, wait_for


def a_stopped_process_with_the_lock_stops_nobody(desktop):
    desktop.show_sample_day()
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


def quit_while_held(desktop, lock):
    process = desktop.show_sample_day()
    holder = desktop.hold_lock(lock)
    holder.send_signal(signal.SIGSTOP)
    left, top, _, _ = desktop.card(FOCUS)
    first, others = row(desktop, 0, 4), [row(desktop, index, 4) for index in (1, 2)]
    desktop.click(left + CIRCLE, top + FIRST_ROW)
    wait_for(lambda: row(desktop, 0, 4) != first, "the pressed row drawn pending")
    windows = desktop.window_count()
    desktop.click(left + 40, top + 130, button=3)
    wait_for(lambda: desktop.window_count() > windows, "the menu")
    desktop.press_keys("Escape")
    wait_for(lambda: desktop.window_count() == windows, "no menu")
    desktop.ask("ReloadAllTimelines")
    time.sleep(0.5)
    expect([row(desktop, index, 4) for index in (1, 2)] == others, "the last view is not shown any more")
    begin = time.monotonic()
    process.send_signal(signal.SIGTERM)
    expect(process.wait(5) == 0, "the program did not end well")
    took = time.monotonic() - begin
    desktop.figure(f"ended after {took:.2f} s")
    expect(took < 1 or not desktop.is_long, f"the program ended after {took:.2f} s")
    expect(holder.poll() is None, "the lock was freed")


def a_lock_of_the_snapshot_that_is_never_freed_stops_nobody(desktop):
    quit_while_held(desktop, "widget-snapshot.lock")


def a_lock_of_the_journal_that_is_never_freed_stops_nobody(desktop):
    quit_while_held(desktop, "widget-journal.ndjson")
