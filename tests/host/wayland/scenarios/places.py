"""Where cards stand, and what stands above them."""
from cards import FOCUS, NEXT_UP, TRIAGE
from desktop import expect, wait_for
from sessions import BLUE, GROUP, on, open_window, paper, stands, start
from wayland_desktop import PanelDesktop


def four_widgets_stand_where_the_placements_say(desktop):
    start(desktop)
    for kind in (FOCUS, NEXT_UP, TRIAGE, GROUP):
        expect(stands(desktop, kind), f"{kind} does not stand at {desktop.card(kind)}")
    expect(desktop.color(20, 20) == desktop.background, "the desktop is covered")


@on(PanelDesktop)
def the_first_arrangement_leaves_room_for_a_panel(desktop):
    wait_for(lambda: desktop.color(2, 2) != desktop.background, "a panel")
    start(desktop)
    height = next(y for y in range(100) if desktop.color(2, y) == desktop.background)
    expect(desktop.placements()[0]["vertical"] == height + 24, f"a panel of {height}, and {desktop.placements()[0]}")
    expect(stands(desktop, FOCUS), "the card is elsewhere")
    desktop.tell("bar", "mode", "invisible")
    wait_for(lambda: desktop.color(2, 2) == desktop.background, "no panel")
    expect(stands(desktop, FOCUS), "the card moved with the panel")


def an_ordinary_window_stands_above_the_widgets(desktop):
    start(desktop)
    before = desktop.picture()
    window, _ = open_window(desktop)
    all_blue = BLUE * (desktop.width * 700)
    wait_for(lambda: desktop.picture(height=700) == all_blue, "a window over all cards")
    left, top, _, _ = desktop.card(FOCUS)
    desktop.click(left + 60, top + 60)
    desktop.leave()
    desktop.tell("workspace", "2")
    wait_for(lambda: desktop.picture() == before, "the cards on another workspace")
    desktop.tell("workspace", "1")
    wait_for(lambda: desktop.color(left + 60, top + 60) == BLUE, "the window over the cards again")
    window.terminate()
    wait_for(lambda: desktop.picture() == before, "the cards as before")


def a_dragged_widget_stays_where_it_was_dropped(desktop):
    process = start(desktop)
    left, top, _, _ = desktop.card(TRIAGE)
    grip, color = (left + 120, top + 150), paper(desktop, TRIAGE)
    desktop.drag_to(grip, (grip[0] - 700, grip[1] + 200))
    wait_for(lambda: desktop.color(left - 700 + 60, top + 200 + 20) == color, "the card under the mouse")
    wait_for(lambda: desktop.color(left + 60, top + 10) == desktop.background, "no card where it was")
    desktop.release()
    desktop.leave()
    wait_for(lambda: desktop.card(TRIAGE)[:2] != (left, top), "another place of the triage card")
    wait_for(lambda: stands(desktop, TRIAGE), "the card at its place")
    desktop.wait_until_still()
    moved, picture = desktop.card(TRIAGE), desktop.picture()
    expect(abs(moved[0] - left + 700) <= 24 and abs(moved[1] - top - 200) <= 24, f"it stands at {moved}")
    expect(desktop.journal() == [], "the drag pressed something")
    process.terminate()
    expect(process.wait(5) == 0, "the program did not end well")
    desktop.start_widgets()
    wait_for(lambda: desktop.picture() == picture, "the same screen as before the restart")
