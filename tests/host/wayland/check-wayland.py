#!/usr/bin/env python3
"""Uses the widgets in a Wayland session, where they stand on layers of the desktop.

    check-wayland.py WIDGETS VANTELCTL WINDOW SCENARIO [--long]
        exit 1 with a sentence when the scenario does not come true, and 77 when this machine does not let it be tried;
        some scenarios do more rounds in the long form, and print their figures
"""
import importlib
import pathlib
import sys

from desktop import Failed, Skipped
from wayland_desktop import WaylandDesktop


def named(scenario):
    """The scenario of that name, in whichever file it stands."""
    folder = pathlib.Path(__file__).parent / "scenarios"
    modules = (importlib.import_module(f"scenarios.{file.stem}") for file in sorted(folder.glob("*.py")))
    return next(getattr(module, scenario) for module in modules if hasattr(module, scenario))


def main():
    is_long = sys.argv[-1] == "--long"
    *programs, scenario = sys.argv[1:5]
    widgets, vantelctl, window = (str(pathlib.Path(each).resolve()) for each in programs)
    use = named(scenario)
    try:
        with getattr(use, "desktop_type", WaylandDesktop)(widgets, vantelctl) as desktop:
            desktop.is_long, desktop.window_program = is_long, window
            use(desktop)
    except Failed as failure:
        sys.exit(f"{scenario}: {failure}")
    except Skipped as reason:
        print(f"skipped: {reason}")
        sys.exit(77)


main()
