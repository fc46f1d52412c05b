"""Where things are on the cards, and ways to them that several scenarios take."""
from desktop import wait_for

FOCUS, NEXT_UP, TRIAGE = "VantelFocusWidget", "VantelNextUpWidget", "VantelTriageWidget"
CIRCLE = 121  # points from the left edge of the medium focus card to its circles
TITLE = 160  # and to the titles beside them
FIRST_ROW, ROW = 37, 32  # from its upper edge to the middle of the first of four rows, and from row to row
MAC_EPOCH = 978307200


def row(desktop, number, rows):
    """The pixels of the title in a row of the focus card, where there are so many rows in all."""
    left, top, _, _ = desktop.card(FOCUS)
    middle = top + FIRST_ROW + (4 - rows) * ROW // 2 + number * ROW
    return desktop.picture(left + TITLE - 10, middle - 10, 170, 20)


def open_menu(desktop, x, y):
    windows = desktop.window_count()
    desktop.click(x, y, button=3)
    wait_for(lambda: desktop.window_count() > windows, "the menu")
    desktop.wait_until_still()


def record_links(desktop):
    """Installs an application for the links that writes down what it is given."""
    record = desktop.folder / "links.txt"
    desktop.install_companion(f'printf "%s\\n" "$@" >>"{record}"')
    return lambda: record.read_text().split() if record.exists() else []
