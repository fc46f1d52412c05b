"""Talks on message buses, and plays the desktop's settings portal."""
import socket
import threading

from gi.repository import Gio, GLib

PROPERTIES = "org.freedesktop.DBus.Properties"


def connect(address):
    flags = Gio.DBusConnectionFlags
    return Gio.DBusConnection.new_for_address_sync(
        address, flags.AUTHENTICATION_CLIENT | flags.MESSAGE_BUS_CONNECTION, None, None)


def call(bus, name, path, method, signature="()", *arguments):
    """Calls a method, named with its interface before the last dot, and returns what it answers."""
    interface, member = method.rsplit(".", 1)
    answer = bus.call_sync(name, path, interface, member, GLib.Variant(signature, arguments), None,
                           Gio.DBusCallFlags.NONE, 10000, None).unpack()
    return answer[0] if len(answer) == 1 else answer


class MuteBus:
    """Takes the place of a bus for all that starts now. Lets everybody in, and never says a word."""

    def __init__(self, desktop, variable="DBUS_SESSION_BUS_ADDRESS"):
        path = str(desktop.folder / "mute")
        self.visitors = []
        self.listener = socket.socket(socket.AF_UNIX)
        self.listener.bind(path)
        self.listener.listen()
        desktop.environment[variable] = f"unix:path={path}"
        threading.Thread(target=self.open_doors, daemon=True).start()

    def open_doors(self):
        while True:
            self.visitors.append(self.listener.accept())


class SettingsPortal:
    """Tells of the desktop's looks, as the portals do."""
    name, path = "org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop"
    interface = "org.freedesktop.portal.Settings"
    color_scheme = "org.freedesktop.appearance", "color-scheme"
    contrast = "org.freedesktop.appearance", "contrast"
    text_scale = "org.gnome.desktop.interface", "text-scaling-factor"
    declaration = """<node><interface name='org.freedesktop.portal.Settings'>
        <method name='ReadOne'>
            <arg type='s' direction='in'/><arg type='s' direction='in'/><arg type='v' direction='out'/>
        </method>
        <signal name='SettingChanged'><arg type='s'/><arg type='s'/><arg type='v'/></signal>
    </interface></node>"""

    def __init__(self, desktop):
        self.questions, self.is_silent = 0, False
        self.settings = {self.color_scheme: GLib.Variant("u", 2), self.contrast: GLib.Variant("u", 0)}
        self.bus = connect(desktop.environment["DBUS_SESSION_BUS_ADDRESS"])
        self.bus.register_object(self.path, Gio.DBusNodeInfo.new_for_xml(self.declaration).interfaces[0],
                                 self.answer, None, None)
        call(self.bus, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus.RequestName", "(su)",
             self.name, 0)
        threading.Thread(target=GLib.MainLoop().run, daemon=True).start()

    def answer(self, _bus, _sender, _path, _interface, _method, arguments, invocation):
        self.questions += 1
        value = self.settings.get(arguments.unpack())
        if self.is_silent:
            return
        if value:
            invocation.return_value(GLib.Variant("(v)", (value,)))
        else:
            invocation.return_dbus_error("org.freedesktop.portal.Error.NotFound", "no such setting")

    def change(self, setting, value):
        self.settings[setting] = value
        self.bus.emit_signal(None, self.path, self.interface, "SettingChanged",
                             GLib.Variant("(ssv)", (*setting, value)))

    def darken(self, is_dark):
        self.change(self.color_scheme, GLib.Variant("u", 1 if is_dark else 2))

    def leave_colours_open(self):
        self.change(self.color_scheme, GLib.Variant("u", 0))

    def heighten_contrast(self, is_high):
        self.change(self.contrast, GLib.Variant("u", 1 if is_high else 0))

    def scale_texts(self, scale):
        self.change(self.text_scale, GLib.Variant("d", scale))
