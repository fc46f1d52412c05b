"""Hears the cards as a screen reader does: over the accessibility bus."""
from typing import NamedTuple

from gi.repository import GLib

from session_bus import PROPERTIES, call, connect

ACCESSIBLE, ACTION = "org.a11y.atspi.Accessible", "org.a11y.atspi.Action"
SHOWING = 1 << 25


class Heard(NamedTuple):
    role: str
    name: str
    actions: list
    place: tuple


class ScreenReader:
    def __init__(self, desktop):
        """Switches on, as a user does, before the widgets start or after it."""
        call(desktop.bus, "org.a11y.Bus", "/org/a11y/bus", PROPERTIES + ".Set", "(ssv)",
             "org.a11y.Status", "ScreenReaderEnabled", GLib.Variant("b", True))
        self.bus = connect(call(desktop.bus, "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus.GetAddress"))

    def everything(self, place=("org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root")):
        """What shows on the screen, in reading order, each thing before what is inside it."""
        for child in call(self.bus, *place, ACCESSIBLE + ".GetChildren"):
            try:
                is_showing = call(self.bus, *child, ACCESSIBLE + ".GetState")[0] & SHOWING
                found = [self.heard(child), *self.everything(child)] if is_showing else []
            except GLib.Error:
                continue  # It went while it was asked.
            yield from found

    def card(self, name):
        """A card, and what is on it. It stands in a window of the same name."""
        window = next(each for each in self.everything() if each.name == name)
        return list(self.everything(window.place))

    def heard(self, place):
        has_actions = ACTION in call(self.bus, *place, ACCESSIBLE + ".GetInterfaces")
        actions = call(self.bus, *place, ACTION + ".GetActions") if has_actions else []
        return Heard(call(self.bus, *place, ACCESSIBLE + ".GetRoleName"),
                     call(self.bus, *place, PROPERTIES + ".Get", "(ss)", ACCESSIBLE, "Name"),
                     [action[0] for action in actions], place)

    def press(self, heard):
        call(self.bus, *heard.place, ACTION + ".DoAction", "(i)", heard.actions.index("Press"))
