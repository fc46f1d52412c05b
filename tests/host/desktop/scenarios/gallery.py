"""The window from which widgets are added, while others stand on the desktop."""
from desktop import expect, wait_for
from screen_reader import ScreenReader
from session_bus import SettingsPortal

TITLE = "Add widgets"


def a_second_start_opens_the_gallery_of_the_first(desktop):
    desktop.show_sample_day()
    for _ in range(5):
        second = desktop.start(desktop.widgets, "gallery")
        expect(second.wait(10) == 0, "the second start did not end with 0")
        wait_for(lambda: desktop.focused(TITLE), "the gallery with the keyboard")
        desktop.key("Escape")
        wait_for(lambda: not desktop.gallery(), "no gallery any more")


def an_open_gallery_takes_other_looks_where_it_stands(desktop):
    portal = SettingsPortal(desktop)
    desktop.show_sample_day()
    window = desktop.open_gallery()
    desktop.press_keys("Tab", "Tab", "Return")
    wait_for(lambda: len(desktop.placements()) == 5, "another widget")
    desktop.run("xdotool", "windowmove", "--sync", window, "60", "50")
    other = desktop.start("xev", "-geometry", "100x100+900+500", "-name", "Other")
    desktop.run("xdotool", "windowfocus", "--sync", wait_for(
        lambda: desktop.output("xdotool", "search", "--onlyvisible", "--name", "^Other$").strip(), "another window"))

    def place():
        return desktop.output("xdotool", "getwindowgeometry", window).splitlines()[1]
    before, colours = place(), desktop.picture(300, 120, 40, 40)
    portal.darken(True)
    wait_for(lambda: desktop.picture(300, 120, 40, 40) != colours, "a dark gallery")
    portal.scale_texts(1.25)
    desktop.wait_until_still()
    expect(desktop.gallery() == window, "another gallery")
    expect(place() == before, f"{before} became {place()}")
    expect(desktop.focused("Other"), "the gallery took the keyboard")
    other.terminate()


def a_screen_reader_hears_previews_as_pictures(desktop):
    reader = ScreenReader(desktop)
    desktop.show_sample_day()
    desktop.open_gallery()
    heard = wait_for(lambda: [each for each in reader.card(TITLE) if each.actions], "what can be pressed in the gallery")
    names = [each.name for each in heard]
    expect("Focus, Medium" in names and not any("Complete" in each for each in names), f"{names}")
