"""A Wayland session for tests: a compositor without a screen, its outputs, a mouse and a keyboard."""
import json
import os
import pathlib
import re
import shutil
import signal
import subprocess
import tempfile

from desktop import Desktop, Skipped, expect, wait_for
from virtual_devices import LEFT, RIGHT, VirtualDevices

NOBODY = 65534
OUTER_SETTINGS = "output * mode 4000x4000\nfor_window [title=.*] floating enable\n"
PLUGGABLE_SETTINGS = "output * bg #335577 solid_color\n"
SWAY_SETTINGS = """
output HEADLESS-1 mode 1366x768 position 0 0
output * bg #335577 solid_color
default_border none
focus_follows_mouse no
seat * hide_cursor 0
"""


def make_folder_for_sockets():
    """Systems that were never booted, as containers, lack it. Compositors make one then that not all of them accept."""
    folder = pathlib.Path("/tmp/.X11-unix")
    try:
        folder.mkdir()
        folder.chmod(0o1777)
    except FileExistsError:
        pass


def sway_version():
    """The major and the minor version of sway."""
    answer = subprocess.run(["sway", "--version"], stdout=subprocess.PIPE, text=True, check=True).stdout
    return tuple(map(int, re.search(r"(\d+)\.(\d+)", answer).groups()))


class WaylandDesktop(Desktop):
    """Places are logical pixels of the whole desktop. Compositors refuse to be run by root, so then they are nobody's."""
    program = "sway"
    settings = SWAY_SETTINGS
    background = bytes([0x33, 0x55, 0x77])

    def __init__(self, widgets, vantelctl):
        super().__init__(widgets, vantelctl)
        self.place = pathlib.Path(tempfile.mkdtemp(prefix="vantel-compositor-"))
        self.runtime = self.place / "runtime"
        self.runtime.mkdir(mode=0o700)
        self.environment.pop("DISPLAY", None)
        self.size = (self.width, self.height)

    def __enter__(self):
        try:
            if shutil.which(self.program) is None:
                raise Skipped(f"{self.program} is not installed")
            make_folder_for_sockets()
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

    def start_as_nobody(self, *words, stderr=subprocess.DEVNULL, **settings):
        variables = {"PATH": os.environ["PATH"], "HOME": str(self.place), "XDG_RUNTIME_DIR": str(self.runtime),
                     "WLR_BACKENDS": "headless", "WLR_RENDERER": "pixman", "WLR_LIBINPUT_NO_DEVICES": "1",
                     "LC_ALL": "C.UTF-8", **settings}
        nobody = []
        if os.getuid() == 0:
            for path in (self.place, self.runtime):
                os.chown(path, NOBODY, NOBODY)
            nobody = ["setpriv", f"--reuid={NOBODY}", f"--regid={NOBODY}", "--clear-groups"]
        words = [*nobody, "env", "-i", *(f"{name}={value}" for name, value in variables.items()), *words]
        process = subprocess.Popen(words, stdout=subprocess.DEVNULL, stderr=stderr)
        self.processes.append(process)
        return process

    def start_sway(self, settings, **variables):
        """Returns the process and the path of its socket."""
        before = self.sockets()
        file = self.place / f"settings-{len(before)}"  # a socket is there before the settings of its compositor are read
        file.write_text(settings)
        process = self.start_as_nobody("sway", "--config", str(file), **variables)
        return process, wait_for(lambda: self.sockets() - before, "a compositor").pop()

    def sockets(self):
        return {each for each in self.runtime.glob("wayland-*") if each.suffix != ".lock"}

    def start_compositor(self):
        self.compositor, self.socket = self.start_sway(self.settings)
        self.use_compositor()

    def use_compositor(self):
        self.environment["WAYLAND_DISPLAY"] = str(self.socket)
        self.environment["SWAYSOCK"] = str(next(self.runtime.glob(f"sway-ipc.*.{self.compositor.pid}.sock")))
        self.connect_devices()
        wait_for(lambda: self.color(2, 600) == self.background, "a background")

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

    def picture(self, left=0, top=0, width=None, height=None):
        place = f"{left},{top} {width or self.width}x{height or self.height}"
        command = ["grim", "-t", "ppm", "-s", "1", "-g", place, "-"]
        found = self.answer(command)
        expect(found is not None, f"no answer to {command}")
        return found.split(b"\n255\n", 1)[-1]

    def answer(self, command, seconds=15):
        """What a command prints, if it ends in time."""
        try:
            return subprocess.run(command, env=self.environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                                  check=False, timeout=seconds).stdout
        except subprocess.TimeoutExpired:
            return None

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
    """A session whose outputs can be unplugged and switched off. Before sway 1.8 those of a compositor without a screen
    can be neither, so there they are windows of another compositor, which can at least be closed."""

    def start_compositor(self):
        self.is_nested = sway_version() < (1, 8)
        if not self.is_nested:
            self.compositor, self.socket = self.start_sway(PLUGGABLE_SETTINGS + "output * mode 1280x720\n")
            return self.use_compositor()
        self.outer, outer_socket = self.start_sway(OUTER_SETTINGS)
        self.outer_environment = dict(self.environment, WAYLAND_DISPLAY=str(outer_socket), SWAYSOCK=str(
            next(self.runtime.glob(f"sway-ipc.*.{self.outer.pid}.sock"))))
        self.compositor, self.socket = self.start_sway(
            PLUGGABLE_SETTINGS, WLR_BACKENDS="wayland", WAYLAND_DISPLAY=str(outer_socket))
        return self.use_compositor()

    def unplug(self, output):
        if self.is_nested:
            subprocess.run(["swaymsg", f"[title=.*{output}]", "kill"], env=self.outer_environment,
                           stdout=subprocess.DEVNULL, check=True)
        else:
            self.tell("output", output, "unplug")
        wait_for(lambda: output not in self.outputs(), f"{output} gone")

    def disable(self, output):
        self.tell("output", output, "disable")
        wait_for(lambda: output not in self.outputs(), f"{output} gone")

    def enable(self, output):
        """Makes an output show something again, and returns its name. Newer ones of sway may draw nothing on such an output
        until they are told something else about it."""
        self.tell("output", output, "enable")
        wait_for(lambda: output in self.outputs(), "an output more")
        wait_for(lambda: self.draws(output), "an output that shows something")
        return output

    def draws(self, output):
        self.tell("output", output, "mode", "1280x720")
        return self.answer(["grim", "-o", output, "-"], seconds=1) is not None

    def plug(self):
        """Plugs in an output, and returns its name."""
        before = self.outputs().keys()
        self.tell("create_output")
        return wait_for(lambda: [*self.outputs().keys() - before], "an output more")[0]


class PanelDesktop(WaylandDesktop):
    """A session with a panel at its upper edge."""
    settings = SWAY_SETTINGS + "bar {\n    position top\n}\n"


class LabwcDesktop(WaylandDesktop):
    """A session of a compositor that stacks windows. Its background is black."""
    program = "labwc"
    width, height = 1280, 720
    background = bytes(3)

    def start_compositor(self):
        settings = self.place / "labwc"
        settings.mkdir()
        (settings / "rc.xml").write_text("<labwc_config/>\n")
        self.compositor = self.start_as_nobody("labwc", "--config-dir", str(settings), WLR_HEADLESS_OUTPUTS="1")
        self.socket = wait_for(self.sockets, "a compositor").pop()
        self.environment["WAYLAND_DISPLAY"] = str(self.socket)
        self.connect_devices()
        wait_for(lambda: self.color(2, 600) == self.background, "a background")


class DesktopWithoutLayers(WaylandDesktop):
    """A session of GNOME's compositor, with an X server beside it. Nobody can take pictures of it."""
    program = "mutter"
    width, height = 1280, 800

    def start_compositor(self):
        log, bus = self.place / "log", f"unix:path={self.runtime}/bus"
        self.start_as_nobody("dbus-daemon", "--session", "--nofork", f"--address={bus}")
        wait_for((self.runtime / "bus").exists, "a bus for the compositor")
        with log.open("w") as output:
            self.compositor = self.start_as_nobody(
                "mutter", "--wayland", "--headless", "--virtual-monitor", f"{self.width}x{self.height}", stderr=output,
                DBUS_SESSION_BUS_ADDRESS=bus, GSETTINGS_BACKEND="memory")
        display = wait_for(lambda: re.search(r"public X11 display (:\d+)", log.read_text()), "an X server")
        self.environment["DISPLAY"] = display[1]
        self.environment["XAUTHORITY"] = str(wait_for(lambda: [*self.runtime.glob(".mutter-Xwaylandauth.*")], "a key")[0])
        self.socket = wait_for(self.sockets, "a compositor").pop()
        self.environment["WAYLAND_DISPLAY"] = str(self.socket)
        wait_for(lambda: "window id" in self.output("xprop", "-root", "_NET_SUPPORTING_WM_CHECK"), "a window manager")

    def window(self, name):
        """The number of the window of a name."""
        found = self.output("xdotool", "search", "--onlyvisible", "--name", f"^{name}$").split()
        return int(found[-1]) if found else None

    def position(self, window):
        text = self.output("xwininfo", "-id", str(window))
        return tuple(int(re.search(rf"Absolute upper-left {axis}: +(-?\d+)", text)[1]) for axis in "XY")

    def stacking(self):
        """All windows, the lowest first."""
        return [int(each, 16) for each in re.findall(r"0x[0-9a-f]+", self.output("xprop", "-root", "_NET_CLIENT_LIST_STACKING"))]

    def colors(self, window):
        picture = subprocess.run(["import", "-silent", "-window", str(window), "-depth", "8", "rgb:-"],
                                 env=self.environment, stdout=subprocess.PIPE, check=True).stdout
        return len(set(picture))
