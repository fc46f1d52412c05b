"""A bus that lets everybody in and does not answer."""
import signal
import time

from cards import CIRCLE, FIRST_ROW, FOCUS
from desktop import expect, wait_for
from session_bus import MuteBus, SettingsPortal


def a_bus_that_never_answers_keeps_no_widgets_away(desktop):
    bus = MuteBus(desktop)
    desktop.environment["XDG_CURRENT_DESKTOP"] = "GNOME"  # for which the toolkit itself looks for services
    process = desktop.show_sample_day()
    expect(bus.visitors, "nobody came to the bus")
    left, top, _, _ = desktop.card(FOCUS)
    desktop.click(left + CIRCLE, top + FIRST_ROW)
    wait_for(desktop.journal, "a journal line")
    process.send_signal(signal.SIGTERM)
    expect(process.wait(5) == 0, "the program did not end well")


def a_system_bus_that_never_answers_holds_up_no_click(desktop):
    bus = MuteBus(desktop, "DBUS_SYSTEM_BUS_ADDRESS")
    desktop.show_sample_day()
    wait_for(lambda: bus.visitors, "somebody who comes to the bus")
    left, top, _, _ = desktop.card(FOCUS)
    desktop.click(left + CIRCLE, top + FIRST_ROW)
    wait_for(desktop.journal, "a journal line")


def a_bus_that_answers_late_is_taken(desktop):
    portal = SettingsPortal(desktop)
    desktop.bus_daemon.send_signal(signal.SIGSTOP)
    desktop.show_sample_day()
    light = desktop.picture(*desktop.card(FOCUS))
    desktop.bus_daemon.send_signal(signal.SIGCONT)
    wait_for(lambda: len(desktop.answers() or []) == 4, "the widgets on the bus")
    portal.darken(True)
    wait_for(lambda: desktop.picture(*desktop.card(FOCUS)) != light, "a dark card")
    second = desktop.start(desktop.widgets, "gallery")
    expect(second.wait(10) == 0, "the second start did not end with 0")
    wait_for(desktop.gallery, "the gallery of the first")


def a_start_that_waits_for_the_portal_can_be_ended(desktop):
    portal = SettingsPortal(desktop)
    portal.is_silent = True
    for moment in (0, 0.02, 0.05):
        portal.questions = 0
        process = desktop.start(desktop.widgets)
        wait_for(lambda: portal.questions, "a question to the portal")
        time.sleep(moment)
        process.send_signal(signal.SIGTERM)
        expect(process.wait(5) in (0, -signal.SIGTERM), "the program did not end well")
