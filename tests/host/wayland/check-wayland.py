#!/usr/bin/env python3
"""Uses the widgets in a Wayland session, where they stand on layers of the desktop.

    check-wayland.py WIDGETS VANTELCTL WINDOW SCENARIO [--long]
        exit 1 with a sentence when the scenario does not come true, and 77 when this machine does not let it be tried;
        some scenarios do more rounds in the long form, and print their figures
"""
from runner import run
from wayland_desktop import WaylandDesktop


def session(use, widgets, vantelctl, window):
    """Scenarios may say which one they need."""
    desktop = getattr(use, "desktop_type", WaylandDesktop)(widgets, vantelctl)
    desktop.window_program = window
    return desktop


run(__file__, session)
