#!/usr/bin/env python3
"""Uses the widgets as a user would, on a desktop of their own.

    check-desktop.py WIDGETS VANTELCTL SCENARIO [--long]
        exit 1 with a sentence when the scenario does not come true, and 77 when this machine does not let it be tried;
        some scenarios last longer and do more in the long form, and print their figures
"""
from desktop import Desktop
from runner import run

run(__file__, lambda _, widgets, vantelctl: Desktop(widgets, vantelctl))
