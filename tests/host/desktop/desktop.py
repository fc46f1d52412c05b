"""A desktop session for tests: an X server, a window manager, a session bus, and folders that nobody else uses."""
import json
import os
import pathlib
import shutil
import signal
import subprocess
import tempfile
import time


class Failed(Exception):
    """What was expected did not come."""


def wait_for(condition, what, seconds=15):
    """Waits until the condition gives something true, and returns that. The limit only ends a hopeless test."""
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        answer = condition()
        if answer:
            return answer
        time.sleep(0.03)
    raise Failed(f"{what}, not within {seconds} seconds")


def expect(condition, what):
    if not condition:
        raise Failed(what)


class Desktop:
    width, height = 1366, 768

    def __init__(self, widgets, vantelctl):
        self.widgets, self.vantelctl = widgets, vantelctl
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="vantel-desktop-"))
        self.environment = dict(os.environ, HOME=str(self.folder), TZ="Europe/Berlin", LC_ALL="C.UTF-8",
                                NO_AT_BRIDGE="1", PATH=f"{self.folder / 'bin'}:{os.environ['PATH']}")
        for name in ("DATA_HOME", "STATE_HOME", "CONFIG_HOME", "RUNTIME_DIR"):
            path = self.folder / name.lower()
            path.mkdir(mode=0o700)
            self.environment["XDG_" + name] = str(path)
        for name in ("QT_QPA_PLATFORM", "WAYLAND_DISPLAY", "DBUS_SESSION_BUS_ADDRESS", "XDG_CURRENT_DESKTOP"):
            self.environment.pop(name, None)
        (self.folder / "bin").mkdir()
        self.processes = []

    def __enter__(self):
        self.start_display()
        self.start_bus()
        self.start("openbox")
        wait_for(lambda: "_NET_SUPPORTING_WM_CHECK" in self.output("xprop", "-root"), "a window manager")
        return self

    def __exit__(self, *_):
        for process in reversed(self.processes):
            process.send_signal(signal.SIGCONT)
            process.terminate()
        for process in reversed(self.processes):
            try:
                process.wait(5)
            except subprocess.TimeoutExpired:
                process.kill()
        shutil.rmtree(self.folder, ignore_errors=True)

    def start_display(self):
        reading, writing = os.pipe()
        self.start("Xvfb", "-displayfd", str(writing), "-screen", "0", f"{self.width}x{self.height}x24",
                   "-nolisten", "tcp", pass_fds=[writing])
        os.close(writing)
        with os.fdopen(reading) as numbers:
            self.environment["DISPLAY"] = ":" + numbers.readline().strip()

    def start_bus(self):
        daemon = self.start("dbus-daemon", "--session", "--nofork", "--print-address=1", stdout=subprocess.PIPE,
                            text=True)
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = daemon.stdout.readline().strip()

    def start(self, *words, **options):
        options.setdefault("stdout", subprocess.DEVNULL)
        process = subprocess.Popen(words, env=self.environment, stderr=subprocess.DEVNULL, **options)
        self.processes.append(process)
        return process

    def output(self, *words, **options):
        return subprocess.run(words, env=self.environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                              check=False, text=True, **options).stdout

    def run(self, *words):
        subprocess.run(words, env=self.environment, stdout=subprocess.DEVNULL, check=True)

    # ---- the system

    @property
    def container(self):
        return next((self.folder / "data_home" / "group-containers").iterdir())

    def write_snapshot(self, snapshot):
        document = self.folder / "document.json"
        document.write_text(json.dumps(snapshot))
        self.run(self.vantelctl, "snapshot", "write", str(document))

    def placeholder(self):
        return json.loads(self.output(self.vantelctl, "snapshot", "placeholder", "--json"))

    def snapshot(self):
        return json.loads((self.container / "widget-snapshot.json").read_text())

    def journal(self):
        file = self.container / "widget-journal.ndjson"
        return [json.loads(line) for line in file.read_text().splitlines()] if file.exists() else []

    def placements(self):
        file = self.folder / "state_home" / "vantel-widgets" / "placements.json"
        return json.loads(file.read_text())["placements"] if file.exists() else []

    def start_widgets(self):
        """Returns once the four cards are drawn and nothing on the screen moves any more."""
        process = self.start(self.widgets)
        wait_for(lambda: len(self.placements()) == 4, "four placements")
        wait_for(lambda: all(self.is_drawn(each) for each in self.placements()), "four drawn cards")
        self.wait_until_still()
        return process

    # ---- the screen

    def card(self, kind):
        """Left, top, width and height of the card of a kind."""
        return self.area(next(each for each in self.placements() if each["kind"] == kind))

    def area(self, placement):
        width = 364 if placement["family"] == "systemMedium" else 170
        horizontal, vertical = placement["horizontal"], placement["vertical"]
        left = horizontal if placement["corner"].endswith("Left") else self.width - horizontal - width
        top = vertical if placement["corner"].startswith("top") else self.height - vertical - 170
        return left, top, width, 170

    def picture(self, left=0, top=0, width=width, height=height):
        """The pixels of a part of the screen."""
        command = ["import", "-silent", "-window", "root", "-crop", f"{width}x{height}+{left}+{top}", "-depth", "8",
                   "rgb:-"]
        return subprocess.run(command, env=self.environment, stdout=subprocess.PIPE, check=True).stdout

    def is_drawn(self, placement):
        return len(set(self.picture(*self.area(placement)))) > 20

    def wait_until_still(self):
        before = [self.picture()]

        def is_still():
            now, before[0] = self.picture(), before[0]
            same = now == before[0]
            before[0] = now
            return same
        wait_for(is_still, "a screen that stands still")

    def move(self, x, y):
        self.run("xdotool", "mousemove", str(x), str(y))

    def click(self, x, y, button=1):
        self.move(x, y)
        self.run("xdotool", "click", str(button))

    def drag(self, start, end):
        self.move(*start)
        self.run("xdotool", "mousedown", "1")
        steps = 8
        for i in range(1, steps + 1):
            self.move(*(round(a + (b - a) * i / steps) for a, b in zip(start, end)))
        self.run("xdotool", "mouseup", "1")

    def key(self, name):
        self.run("xdotool", "key", name)

    def focus_widgets(self):
        """Asks the program over the bus to take the keyboard, as a shortcut of the desktop would."""
        self.run("dbus-send", "--session", "--print-reply", "--dest=org.vantel.Widgets", "/org/vantel/Widgets",
                 "org.vantel.Widgets1.FocusWidgets")

    def focused_card(self):
        """The card window that has the keyboard, or an empty text."""
        window = self.output("xdotool", "getwindowfocus").strip()
        return window if "vantel-widgets" in self.output("xprop", "-id", window, "WM_CLASS") else ""

    def window_count(self):
        return len(self.output("xdotool", "search", "--onlyvisible", "--name", ".*").split())
