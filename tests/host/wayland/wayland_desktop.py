"""A Wayland session for tests: a compositor without a screen, its outputs, a mouse and a keyboard."""
import json
import os
import pathlib
import shutil
import signal
import subprocess
import tempfile

from desktop import Desktop, Skipped, wait_for
from virtual_devices import LEFT, RIGHT, VirtualDevices

NOBODY = 65534
BACKGROUND = bytes([0x33, 0x55, 0x77])
SWAY_SETTINGS = """
output HEADLESS-1 mode 1366x768 position 0 0
output * bg #335577 solid_color
default_border none
focus_follows_mouse no
seat * hide_cursor 0
"""


class WaylandDesktop(Desktop):
    """Places are logical pixels of the whole desktop. Compositors refuse to be run by root, so then they are nobody's."""
    program = "sway"

    def __init__(self, widgets, vantelctl):
        super().__init__(widgets, vantelctl)
        self.place = pathlib.Path(tempfile.mkdtemp(prefix="vantel-compositor-"))
        self.runtime = self.place / "runtime"
        self.runtime.mkdir(mode=0o700)
        self.environment.pop("DISPLAY", None)
        self.size = (self.width, self.height)

    def __enter__(self):
        if shutil.which(self.program) is None:
            raise Skipped(f"{self.program} is not installed")
        try:
            self.start_compositor()
            self.start_bus()
        except Exception:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        super().__exit__()
        shutil.rmtree(self.place, ignore_errors=True)

    # ---- the compositor

    def start_as_nobody(self, *words, **settings):
        variables = {"PATH": os.environ["PATH"], "HOME": str(self.place), "XDG_RUNTIME_DIR": str(self.runtime),
                     "WLR_BACKENDS": "headless", "WLR_RENDERER": "pixman", "WLR_LIBINPUT_NO_DEVICES": "1",
                     "LC_ALL": "C.UTF-8", **settings}
        nobody = []
        if os.getuid() == 0:
            for path in (self.place, self.runtime):
                os.chown(path, NOBODY, NOBODY)
            nobody = ["setpriv", f"--reuid={NOBODY}", f"--regid={NOBODY}", "--clear-groups"]
        return self.start(*nobody, "env", "-i", *(f"{name}={value}" for name, value in variables.items()), *words)

    def start_sway(self, settings, **variables):
        """Returns the process and the path of its socket."""
        file, before = self.place / "settings", self.sockets()
        file.write_text(settings)
        process = self.start_as_nobody("sway", "--config", str(file), **variables)
        return process, wait_for(lambda: self.sockets() - before, "a compositor").pop()

    def sockets(self):
        return {each for each in self.runtime.glob("wayland-*") if each.suffix != ".lock"}

    def start_compositor(self):
        self.compositor, self.socket = self.start_sway(SWAY_SETTINGS)
        self.use_compositor()

    def use_compositor(self):
        self.environment["WAYLAND_DISPLAY"] = str(self.socket)
        self.environment["SWAYSOCK"] = str(next(self.runtime.glob(f"sway-ipc.*.{self.compositor.pid}.sock")))
        self.connect_devices()
        wait_for(lambda: self.color(2, 2) == BACKGROUND, "a background")

    def connect_devices(self):
        def devices():
            try:
                return VirtualDevices(self.socket, *self.size)
            except (ConnectionError, KeyError, FileNotFoundError):
                return None
        self.devices = wait_for(devices, "a mouse and a keyboard")

    def resize(self):
        """The mouse reaches all outputs."""
        rectangles = self.outputs().values()
        self.size = (max(each["x"] + each["width"] for each in rectangles),
                     max(each["y"] + each["height"] for each in rectangles))
        self.devices.width, self.devices.height = self.size

    def kill_compositor(self):
        self.devices.close()
        self.compositor.send_signal(signal.SIGKILL)
        self.compositor.wait()
        self.processes.remove(self.compositor)
        for left in self.runtime.iterdir():
            left.unlink()

    def tell(self, *words):
        """Tells sway something."""
        self.run("swaymsg", *words)

    def version(self):
        """The major and the minor version of sway."""
        answer = json.loads(self.output("swaymsg", "--raw", "--type", "get_version"))
        return answer["major"], answer["minor"]

    def outputs(self):
        """The outputs that show something: their names and rectangles."""
        answer = json.loads(self.output("swaymsg", "--raw", "--type", "get_outputs"))
        return {each["name"]: each["rect"] for each in answer if each["active"]}

    def make(self):
        """The make of the outputs, which all have the same."""
        answer = json.loads(self.output("swaymsg", "--raw", "--type", "get_outputs"))[0]
        return {"manufacturer": answer["make"], "model": answer["model"], "serial": ""}

    def windows(self):
        """The titles of the ordinary windows."""
        def titles(node):
            inner = [title for each in node["nodes"] + node["floating_nodes"] for title in titles(each)]
            return inner + ([node["name"]] if node.get("app_id") else [])
        return titles(json.loads(self.output("swaymsg", "--raw", "--type", "get_tree")))

    # ---- the screen

    def picture(self, left=0, top=0, width=Desktop.width, height=Desktop.height):
        command = ["grim", "-t", "ppm", "-s", "1", "-g", f"{left},{top} {width}x{height}", "-"]
        found = subprocess.run(command, env=self.environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                               check=False).stdout
        return found.split(b"\n255\n", 1)[-1]

    def color(self, x, y):
        return self.picture(x, y, 1, 1)

    def move(self, x, y):
        self.devices.move(x, y)

    def press(self, button=1):
        self.devices.button(RIGHT if button == 3 else LEFT, True)

    def release(self, button=1):
        self.devices.button(RIGHT if button == 3 else LEFT, False)

    def click(self, x, y, button=1):
        self.move(x, y)
        self.press(button)
        self.release(button)

    def drag_to(self, start, end):
        """Presses at the start, goes to the end, and does not let go."""
        self.move(*start)
        self.press()
        for i in range(1, 9):
            self.move(*(round(a + (b - a) * i / 8) for a, b in zip(start, end)))

    def drag(self, start, end):
        self.drag_to(start, end)
        self.release()

    def leave(self):
        """Puts the mouse where no card is."""
        self.move(20, self.height - 20)

    def key(self, name):
        self.devices.key(name)


class PluggableDesktop(WaylandDesktop):
    """A session whose outputs can be unplugged: they are windows of another one, which can be closed. (The outputs of
    a compositor without a screen can neither be unplugged nor switched off before sway 1.8.)"""

    def start_compositor(self):
        self.outer, outer_socket = self.start_sway(
            "output * mode 4000x4000\nfor_window [title=.*] floating enable\n")
        self.outer_environment = dict(self.environment, WAYLAND_DISPLAY=str(outer_socket), SWAYSOCK=str(
            next(self.runtime.glob(f"sway-ipc.*.{self.outer.pid}.sock"))))
        self.compositor, self.socket = self.start_sway(
            "output * bg #335577 solid_color\n", WLR_BACKENDS="wayland", WAYLAND_DISPLAY=str(outer_socket))
        self.use_compositor()

    def unplug(self, output):
        subprocess.run(["swaymsg", f"[title=.*{output}]", "kill"], env=self.outer_environment,
                       stdout=subprocess.DEVNULL, check=True)
        wait_for(lambda: output not in self.outputs(), "an output fewer")

    def plug(self):
        """Plugs in an output, and returns its name."""
        before = self.outputs().keys()
        self.tell("create_output")
        return wait_for(lambda: [*self.outputs().keys() - before], "an output more")[0]
