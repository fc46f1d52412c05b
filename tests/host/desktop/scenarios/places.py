"""Where cards stand, and what is remembered of it."""
import pathlib
import shutil
import subprocess

from cards import FOCUS, NEXT_UP, TRIAGE
from desktop import expect, wait_for


def a_dragged_widget_stays_where_it_was_dropped(desktop):
    desktop.write_snapshot(dict(desktop.placeholder(), events=[]))  # so that nothing counts down
    process = desktop.start_widgets()
    left, top, _, _ = desktop.card(TRIAGE)
    grip = (left + 120, top + 120)
    desktop.drag(grip, (grip[0] - 700, grip[1] + 200))
    wait_for(lambda: desktop.card(TRIAGE)[:2] != (left, top), "another place of the triage card")
    desktop.wait_until_still()
    moved, picture = desktop.card(TRIAGE), desktop.picture()
    expect(abs(moved[0] - left + 700) <= 24 and abs(moved[1] - top - 200) <= 24, f"it stands at {moved}")
    process.terminate()
    expect(process.wait(5) == 0, "the program did not end well")
    desktop.start_widgets()
    expect(desktop.card(TRIAGE) == moved, "it stands elsewhere after a restart")
    wait_for(lambda: desktop.picture() == picture, "the same screen as before the restart")


def two_widgets_of_one_kind_are_told_as_two(desktop):
    desktop.place((TRIAGE, "systemSmall"), (FOCUS, "systemSmall"), (TRIAGE, "systemSmall"), (NEXT_UP, "systemSmall"))
    desktop.show_sample_day()
    expect(desktop.ask("CurrentConfigurations") == [(TRIAGE, "systemSmall"), (FOCUS, "systemSmall"),
                                                    (TRIAGE, "systemSmall"), (NEXT_UP, "systemSmall")],
           f"the bus tells of {desktop.ask('CurrentConfigurations')}")


def unreadable_placements_are_set_aside(desktop):
    desktop.write_snapshot(desktop.placeholder())
    desktop.state.mkdir()
    (desktop.state / "placements.json").write_text("{")
    desktop.start(desktop.widgets)

    def set_aside():
        return [each for each in desktop.state.iterdir() if each.name != "placements.json"]
    wait_for(lambda: len(set_aside()) == 1 and (desktop.state / "placements.json").exists(), "both files")
    expect(set_aside()[0].read_text() == "{", f"{set_aside()[0]} is not the old file")
    expect(len(desktop.placements()) == 4, f"the placements are {desktop.placements()}")


def a_second_start_leaves_the_first_one_alone(desktop):
    first = desktop.show_sample_day()
    second = desktop.start(desktop.widgets)
    expect(second.wait(10) == 0, "the second start did not end with 0")
    expect(first.poll() is None, "the first one ended")


def an_x_server_without_another_program_is_enough(desktop):
    """It begins anew when its last program leaves."""
    desktop.environment["DISPLAY"] = desktop.start_x_server()
    for _ in range(12):
        process = desktop.start(desktop.widgets)
        wait_for(lambda: process.poll() is not None or desktop.answers(), "an answer of the program")
        expect(process.poll() is None, "the program does not start")
        process.terminate()
        process.wait(10)


def a_launcher_that_leaves_a_token_starts_the_widgets_too(desktop):
    """The toolkit takes the token from the environment, which nothing may read meanwhile."""
    desktop.environment["DESKTOP_STARTUP_ID"] = "launcher-1-host_TIME1"
    desktop.environment["XDG_ACTIVATION_TOKEN"] = "token"
    desktop.show_sample_day()


def a_program_without_its_library_says_what_is_missing(desktop):
    lonely = desktop.folder / "bin" / "vantel-widgets"
    shutil.copy(desktop.widgets, lonely)
    ended = subprocess.run([lonely], env=desktop.environment, capture_output=True, text=True, timeout=60)
    expect(ended.returncode == 1 and ended.stdout == "", f"it ended with {ended.returncode}: {ended.stdout}")
    expect(ended.stderr.startswith("vantel-widgets: fatal: ") and "vantel-widgets.so" in ended.stderr, ended.stderr)


def fonts_that_cannot_be_remembered_do_not_end_the_widgets(desktop):
    """Their lists are written while the toolkit is linked, into a file that may not grow."""
    data = pathlib.Path(desktop.widgets).parents[1] / "share" / "vantel-widgets"
    environment = dict(desktop.environment, DISPLAY="", FONTCONFIG_FILE=str(data / "fonts" / "fonts.conf"))
    for number in range(8):
        environment["XDG_CACHE_HOME"] = str(desktop.folder / f"cache-{number}")
        ended = subprocess.run(["sh", "-c", 'ulimit -f 0; exec "$0"', desktop.widgets], env=environment, timeout=60,
                               stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        expect(ended.returncode == 1, f"without a display it ended with {ended.returncode}")


def a_card_that_is_dropped_onto_another_comes_to_rest_beside_it(desktop):
    desktop.write_snapshot(dict(desktop.placeholder(), events=[]))  # so that nothing counts down
    desktop.start_widgets()
    left, top, _, _ = desktop.card(TRIAGE)
    onto, below, width, height = desktop.card(FOCUS)
    grip = (left + 120, top + 120)
    desktop.drag(grip, (onto + 100, below + 100))
    wait_for(lambda: desktop.card(TRIAGE)[:2] != (left, top), "another place of the triage card")
    x, y, _, _ = desktop.card(TRIAGE)
    expect(x + 170 <= onto or x >= onto + width or y + 170 <= below or y >= below + height, f"it stands at {x}, {y}")
    wait_for(lambda: all(map(desktop.is_drawn, desktop.placements())), "all cards drawn")
