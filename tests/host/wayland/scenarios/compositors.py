"""The same under other compositors: one that stacks windows, and one that offers no layers."""
import subprocess
import time

from cards import CIRCLE, FIRST_ROW, FOCUS, NEXT_UP, TRIAGE
from desktop import expect, wait_for
from scenarios import menus, places
from sessions import GROUP, on, start, still_day
from wayland_desktop import DesktopWithoutLayers, LabwcDesktop


@on(LabwcDesktop)
def under_labwc_they_stand_in_place_and_complete_tasks(desktop):
    places.four_widgets_stand_where_the_placements_say(desktop)
    left, top, _, _ = desktop.card(FOCUS)
    desktop.click(left + CIRCLE, top + FIRST_ROW)
    wait_for(desktop.journal, "a journal line")


@on(LabwcDesktop)
def under_labwc_a_dragged_widget_stays_where_it_was_dropped(desktop):
    places.a_dragged_widget_stays_where_it_was_dropped(desktop)


@on(LabwcDesktop)
def under_labwc_a_menu_opens_and_closes(desktop):
    menus.a_menu_opens_above_all_and_closes_by_a_click_beside_it(desktop)


@on(DesktopWithoutLayers)
def without_layers_the_widgets_stand_on_the_x_server(desktop):
    desktop.write_snapshot(still_day(desktop))
    desktop.start(desktop.widgets)
    wait_for(lambda: len(desktop.placements()) == 4, "four placements")
    cards = {}
    for kind, name in ((FOCUS, "Focus"), (NEXT_UP, "Next up"), (TRIAGE, "Triage"), (GROUP, "Group today")):
        cards[name] = wait_for(lambda name=name: desktop.window(name), f"the window of {name}")
        left, top, _, _ = desktop.card(kind)
        place = (left - 24, top - 24)  # the shadow is a part of the window
        wait_for(lambda card=cards[name], place=place: desktop.position(card) == place, f"{name} at {place}")
        wait_for(lambda card=cards[name]: desktop.colors(card) > 20, f"a drawn card of {name}")
    environment = dict(desktop.environment, QT_QPA_PLATFORM="xcb")
    desktop.processes.append(subprocess.Popen([desktop.window_program, "normal"], stdin=subprocess.PIPE,
                                              stdout=subprocess.DEVNULL, env=environment))
    below = set(cards.values())
    wait_for(lambda: len(desktop.stacking()) == 5, "five windows")
    for card in below:
        desktop.run("xdotool", "windowraise", str(card))
    time.sleep(0.5)  # for what should not happen there is nothing to wait for
    expect(set(desktop.stacking()[:4]) == below, f"from below there are {desktop.stacking()}, cards are {below}")


@on(DesktopWithoutLayers)
def without_layers_nobody_can_ask_for_them(desktop):
    answer = subprocess.run([desktop.widgets, "--backend", "wayland"], env=desktop.environment, text=True,
                            capture_output=True, timeout=20, check=False)
    expect(answer.returncode == 1 and "zwlr_layer_shell_v1" in answer.stderr, f"it answered {answer}")
