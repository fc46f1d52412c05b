#!/usr/bin/env python3
"""Uses the widgets as a user would, on a desktop of their own.

    check-desktop.py WIDGETS VANTELCTL SCENARIO [--long]
        exit 1 with a sentence when the scenario does not come true, and 77 when this machine does not let it be tried;
        some scenarios last longer and do more in the long form, and print their figures
"""
import importlib
import pathlib
import sys

from desktop import Desktop, Failed, Skipped


def named(scenario):
    """The scenario of that name, in whichever file it stands."""
    folder = pathlib.Path(__file__).parent / "scenarios"
    modules = (importlib.import_module(f"scenarios.{file.stem}") for file in sorted(folder.glob("*.py")))
    return next(getattr(module, scenario) for module in modules if hasattr(module, scenario))


def main():
    is_long = sys.argv[-1] == "--long"
    widgets, vantelctl, scenario = sys.argv[1:4]
    try:
        with Desktop(str(pathlib.Path(widgets).resolve()), str(pathlib.Path(vantelctl).resolve())) as desktop:
            desktop.is_long = is_long
            named(scenario)(desktop)
    except Failed as failure:
        sys.exit(f"{scenario}: {failure}")
    except Skipped as reason:
        print(f"skipped: {reason}")
        sys.exit(77)


main()
