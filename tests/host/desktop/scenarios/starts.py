"""What a start finds, and what it does without."""
import pathlib
import shutil
import subprocess

from desktop import expect, wait_for


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


def a_session_that_asks_all_programs_for_wayland_may_have_an_x_server_alone(desktop):
    desktop.environment["QT_QPA_PLATFORM"] = "wayland"
    desktop.show_sample_day()


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
                               capture_output=True, text=True)
        expect(ended.returncode == 1 and "DISPLAY" in ended.stderr, f"it ended with {ended.returncode}: {ended.stderr}")
