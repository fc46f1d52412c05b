"""What happens when somebody sets the clock."""
import random
import signal
import time

from desktop import Desktop, expect, wait_for
from stepped_clock import SteppedClock

HOUR, TEN_YEARS = 3600, 10 * 365.25 * 24 * 3600


def a_clock_that_is_set_shows_the_right_view_within_three_seconds(desktop):
    rounds = 100 if desktop.is_long else 4
    clock = SteppedClock(desktop)
    process = desktop.show_sample_day(*clock.launcher)
    wrong, right, changes = 0, 0, 0
    with Desktop(desktop.widgets, desktop.vantelctl) as other:
        other.environment["TZ"] = desktop.environment["TZ"]
        other.write_snapshot(desktop.snapshot())
        for ahead in moments(rounds):
            fresh = started_at(other, ahead)
            before = desktop.glance()
            wrong, right = map(max, (wrong, right), set_clock(desktop, other, clock, ahead))
            changes += desktop.glance() != before
            end(fresh)
    expect(process.poll() is None, "the program ended")
    desktop.figure(f"{rounds} times the clock was set, {changes} with another view: the old one was seen for "
                   f"{wrong:.2f} seconds at most, the right one after {right:.2f}")
    expect(not desktop.is_long or wrong < 3, f"the old view was seen for {wrong} seconds")
    expect(changes > rounds / 2, f"only {changes} of {rounds} times there was anything else to show")


def moments(rounds):
    """Seconds from now to which the clock is set. Every other step leads a second to ten years away, either way; the
    one behind it leads back to somewhere in the days of the sample."""
    chance = random.Random(1)
    away = [TEN_YEARS ** (number / (rounds // 2 - 1)) for number in range(rounds // 2)]
    chance.shuffle(away)
    at = 0
    for size in away:
        yield at + size * chance.choice((-1, 1))
        at = chance.uniform(-HOUR, 60 * HOUR)
        yield at


def started_at(desktop, ahead):
    """The program on another desktop, begun at that moment: whatever it shows is right."""
    clock = SteppedClock(desktop)
    clock.put_ahead(ahead)
    return desktop.start_widgets(*clock.launcher)


def set_clock(desktop, other, clock, ahead):
    """The seconds for which the old view was seen, and after which the right one was: that of the other desktop, which
    looks at the same moment. What passes between the two is a busy machine's, not the program's."""
    begin = time.monotonic()
    looks = [begin]
    clock.put_ahead(ahead)

    def is_right():
        now = time.monotonic()
        if desktop.glance() == other.glance():
            return True
        looks.append(now)
        return False
    wait_for(is_right, f"the cards of {ahead:.0f} seconds from now")
    return looks[-1] - begin, time.monotonic() - begin


def end(process):
    process.send_signal(signal.SIGTERM)
    expect(process.wait(5) == 0, "the fresh program did not end well")
