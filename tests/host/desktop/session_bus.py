"""Talks on message buses, and plays the desktop's settings portal."""
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


class SettingsPortal:
    """Tells whether the desktop is dark, as the portals do."""
    name, path = "org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop"
    interface, space, key = "org.freedesktop.portal.Settings", "org.freedesktop.appearance", "color-scheme"
    text_scale_setting = "org.gnome.desktop.interface", "text-scaling-factor"
    text_scale = None
    declaration = """<node><interface name='org.freedesktop.portal.Settings'>
        <method name='ReadOne'>
            <arg type='s' direction='in'/><arg type='s' direction='in'/><arg type='v' direction='out'/>
        </method>
        <signal name='SettingChanged'><arg type='s'/><arg type='s'/><arg type='v'/></signal>
    </interface></node>"""

    def __init__(self, desktop):
        self.is_dark = False
        self.bus = connect(desktop.environment["DBUS_SESSION_BUS_ADDRESS"])
        self.bus.register_object(self.path, Gio.DBusNodeInfo.new_for_xml(self.declaration).interfaces[0],
                                 self.answer, None, None)
        call(self.bus, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus.RequestName", "(su)",
             self.name, 0)
        threading.Thread(target=GLib.MainLoop().run, daemon=True).start()

    def scheme(self):
        return GLib.Variant("u", 1 if self.is_dark else 2)

    def answer(self, _bus, _sender, _path, _interface, _method, arguments, invocation):
        if arguments.unpack() == (self.space, self.key):
            invocation.return_value(GLib.Variant("(v)", (self.scheme(),)))
        elif self.text_scale and arguments.unpack() == self.text_scale_setting:
            invocation.return_value(GLib.Variant("(v)", (GLib.Variant("d", self.text_scale),)))
        else:
            invocation.return_dbus_error("org.freedesktop.portal.Error.NotFound", "no such setting")

    def darken(self, is_dark):
        self.is_dark = is_dark
        self.bus.emit_signal(None, self.path, self.interface, "SettingChanged",
                             GLib.Variant("(ssv)", (self.space, self.key, self.scheme())))
