"""Days whose texts want to do harm."""
import pathlib
import subprocess
import time
import unicodedata

from desktop import Skipped, expect
from screen_reader import ScreenReader
from stepped_clock import SteppedClock

MORNING = 1794906300  # 09:05 on the 17th of November 2026 in UTC: the texts of these days are then on show
JOINERS = "\u200c\u200d"


def hostile_days_do_no_harm_on_the_screen(desktop):
    days = hostile_days(desktop)
    clock = SteppedClock(desktop)
    clock.put_ahead(MORNING - time.time())
    reader = ScreenReader(desktop)
    show(desktop, days[0])
    process = desktop.start_widgets(*clock.launcher)
    seen = set()
    for day in days if desktop.is_long else days[::10] + days[-2:]:
        show(desktop, day)
        desktop.ask("ReloadAllTimelines")
        desktop.wait_until_still()
        heard = [each.name for each in reader.everything()]
        expect(heard and all(is_harmless(name) for name in heard), f"of {day.name} is heard {heard}")
        expect(process.poll() is None and len(desktop.ask("CurrentConfigurations")) == 4, f"{day.name} ended the program")
        seen.update(heard)
    expect(len(seen) > 50, f"only {len(seen)} texts were heard")
    desktop.figure(f"{len(days)} days, {len(seen)} texts heard")


def hostile_days(desktop):
    """Documents that the program beside this one writes; the last ones hold texts of megabytes."""
    program = pathlib.Path(desktop.widgets).with_name("vantel_torture")
    if not program.exists():
        raise Skipped(f"{program.name} is not built")
    folder = desktop.folder / "days"
    folder.mkdir()
    subprocess.run([program, "hostile-days"], cwd=folder, check=True, capture_output=True)
    return sorted(folder.glob("h*-*.json"))


def show(desktop, day):
    desktop.run(desktop.vantelctl, "snapshot", "write", str(day))


def is_harmless(name):
    return all(unicodedata.category(each) not in ("Cc", "Cf", "Zl", "Zp") or each in JOINERS for each in name)
