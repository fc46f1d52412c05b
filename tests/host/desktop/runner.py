"""Runs one scenario, as its script is asked to: SCRIPT PROGRAM… SCENARIO [--long]."""
import importlib
import pathlib
import sys

from desktop import Failed, Skipped


def named(scenario, folder):
    """The scenario of that name, in whichever file it stands."""
    modules = (importlib.import_module(f"scenarios.{file.stem}") for file in sorted(folder.glob("*.py")))
    return next(getattr(module, scenario) for module in modules if hasattr(module, scenario))


def run(script, make_desktop):
    """The desktop is made of the scenario and the programs."""
    *programs, scenario = [each for each in sys.argv[1:] if each != "--long"]
    use = named(scenario, pathlib.Path(script).parent / "scenarios")
    try:
        with make_desktop(use, *(str(pathlib.Path(each).resolve()) for each in programs)) as desktop:
            desktop.is_long = "--long" in sys.argv
            use(desktop)
    except Failed as failure:
        sys.exit(f"{scenario}: {failure}")
    except Skipped as reason:
        print(f"skipped: {reason}")
        sys.exit(77)
