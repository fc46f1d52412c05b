"""A desktop session for tests: an X server, a window manager, a session bus, and folders that nobody else uses."""
import json
import os
import pathlib
import shutil
import signal
import subprocess
import tempfile
import time

from gi.repository import GLib

from frame_buffer import FrameBuffer
from session_bus import call, connect


class Failed(Exception):
    """What was expected did not come."""


class Skipped(Exception):
    """This machine does not let it be tried."""


def wait_for(condition, what, seconds=60):
    """Waits until the condition gives something true, and returns that. The limit only ends a hopeless test: a machine
    among many on one host stands still for seconds."""
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
    is_long = False  # whether a scenario takes its time

    def __init__(self, widgets, vantelctl):
        self.widgets, self.vantelctl = widgets, vantelctl
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="vantel-desktop-"))
        self.environment = dict(os.environ, HOME=str(self.folder), TZ=zone_where(time.time(), 12), LC_ALL="C.UTF-8",
                                PATH=f"{self.folder / 'bin'}:{os.environ['PATH']}")
        for name in ("DATA_HOME", "STATE_HOME", "CONFIG_HOME", "RUNTIME_DIR"):
            path = self.folder / name.lower()
            path.mkdir(mode=0o700)
            self.environment["XDG_" + name] = str(path)
        for name in ("QT_QPA_PLATFORM", "WAYLAND_DISPLAY", "DBUS_SESSION_BUS_ADDRESS", "XDG_CURRENT_DESKTOP"):
            self.environment.pop(name, None)
        (self.folder / "bin").mkdir()
        self.processes = []

    def __enter__(self):
        try:
            self.start_display()
            self.start_bus()
            self.window_manager = self.start("openbox")
            wait_for(lambda: "_NET_SUPPORTING_WM_CHECK" in self.output("xprop", "-root"), "a window manager")
        except Failed:
            self.__exit__()
            raise
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

    def replace_window_manager(self, *words):
        """Starts another one, which takes over when it is asked to by its arguments."""
        def identity():
            return self.output("xprop", "-root", "_NET_SUPPORTING_WM_CHECK")
        if shutil.which(words[0]) is None:
            raise Skipped(f"{words[0]} is not installed")
        before = identity()
        self.window_manager = self.start(*words)
        wait_for(lambda: "window id" in identity() and identity() != before, words[0])

    def start_display(self):
        self.environment["DISPLAY"] = self.start_x_server("-noreset", "-fbdir", str(self.folder))
        self.frame_buffer = FrameBuffer(self.folder)

    def start_x_server(self, *options):
        """The name of its display."""
        reading, writing = os.pipe()
        self.start("Xvfb", "-displayfd", str(writing), "-screen", "0", f"{self.width}x{self.height}x24", "-nolisten", "tcp",
                   *options, pass_fds=[writing])
        os.close(writing)
        with os.fdopen(reading) as numbers:
            return ":" + numbers.readline().strip()

    def start_bus(self):
        address = f"unix:path={self.folder / 'bus'}"
        self.bus_daemon = self.start("dbus-daemon", "--session", "--nofork", "--address=" + address, "--print-address=1",
                                     stdout=subprocess.PIPE, text=True)
        self.bus_daemon.stdout.readline()
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = address
        self.bus = connect(address)

    def kill_bus(self):
        self.bus_daemon.kill()
        self.bus_daemon.wait()
        self.processes.remove(self.bus_daemon)
        (self.folder / "bus").unlink()

    def start(self, *words, **options):
        options = {"stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL, **options}
        process = subprocess.Popen(words, env=self.environment, **options)
        self.processes.append(process)
        return process

    def figure(self, text):
        """Prints what was measured, where there was time to."""
        if self.is_long:
            print(text)

    def output(self, *words, **options):
        return subprocess.run(words, env=self.environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                              check=False, text=True, **options).stdout

    def run(self, *words):
        subprocess.run(words, env=self.environment, stdout=subprocess.DEVNULL, check=True)

    # ---- the system

    @property
    def container(self):
        return next((self.folder / "data_home" / "group-containers").iterdir())

    @property
    def state(self):
        return self.folder / "state_home" / "vantel-widgets"

    def install_companion(self, script):
        """Installs an application for the links: a shell script that is given the link."""
        opener = self.folder / "bin" / "xdg-open"
        opener.write_text("#!/bin/sh\n" + script + "\n")
        opener.chmod(0o755)
        applications = self.folder / "data_home" / "applications"
        applications.mkdir()
        (applications / "companion.desktop").write_text(
            "[Desktop Entry]\nType=Application\nName=Companion\nExec=xdg-open %u\n"
            "MimeType=x-scheme-handler/vantel;\n")
        (self.folder / "config_home" / "mimeapps.list").write_text(
            "[Default Applications]\nx-scheme-handler/vantel=companion.desktop\n")

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
        file = self.state / "placements.json"
        return json.loads(file.read_text())["placements"] if file.exists() else []

    def place(self, *widgets):
        """Leaves widgets, each a kind and a family, on the desktop from the top right corner down."""
        self.state.mkdir(exist_ok=True)
        documents = [{"id": f"00000000-0000-4000-8000-{number:012}", "kind": kind, "family": family,
                      "corner": "topRight", "horizontal": 24, "vertical": 24 + 194 * number,
                      "monitor": {"manufacturer": "", "model": "", "serial": "", "name": "screen"}}
                     for number, (kind, family) in enumerate(widgets)]
        (self.state / "placements.json").write_text(json.dumps({"version": 1, "placements": documents}))

    def start_widgets(self, *launcher, cards=4):
        """Returns once all cards are drawn and nothing on the screen moves any more."""
        with (self.folder / "said").open("w") as said:
            process = self.start(*launcher, self.widgets, stderr=said)
        try:
            wait_for(lambda: process.poll() is not None or len(self.placements()) == cards, f"{cards} placements")
            wait_for(lambda: process.poll() is not None or all(map(self.is_drawn, self.placements())),
                     f"{cards} drawn cards")
            expect(process.poll() is None, "the program runs no more")
        except Failed as failure:
            raise Failed(f"{failure}\n{self.state_of(process)}") from failure
        self.wait_until_still()
        return process

    def state_of(self, process):
        """What can be seen from outside of a program that does not do what it should."""
        lines = [f"exit status: {process.poll()}", (self.folder / "said").read_text()]
        for thread in sorted(pathlib.Path(f"/proc/{process.pid}/task").glob("*")):
            lines.append(" ".join((thread / name).read_text().strip() for name in ("comm", "wchan", "syscall")))
        if shutil.which("gdb"):
            lines.append(self.output("gdb", "--batch", "-ex", "thread apply all backtrace", "-p", str(process.pid)))
        return "\n".join(lines)

    def show_sample_day(self, *launcher, cards=4):
        """Starts the program with the day of the gallery."""
        self.write_snapshot(self.placeholder())
        return self.start_widgets(*launcher, cards=cards)

    def ask(self, method, signature="()", *arguments):
        """Calls a method of the running program over the session bus."""
        return call(self.bus, "org.vantel.Widgets", "/org/vantel/Widgets", "org.vantel.Widgets1." + method, signature,
                    *arguments)

    def answers(self):
        """What the program says that it shows, if it can be reached."""
        try:
            return self.ask("CurrentConfigurations")
        except GLib.Error:
            return None

    def gallery(self):
        """The window from which widgets are added, while it is open."""
        return self.output("xdotool", "search", "--onlyvisible", "--name", "^Add widgets$").strip()

    def open_gallery(self):
        self.ask("ShowGallery")
        return wait_for(lambda: self.focused("Add widgets"), "the gallery with the keyboard")

    @staticmethod
    def memory(process):
        """The bytes that a process keeps in memory."""
        pages = pathlib.Path(f"/proc/{process.pid}/statm").read_text().split()[1]
        return int(pages) * os.sysconf("SC_PAGE_SIZE")

    def hold_lock(self, name="widget-snapshot.lock"):
        """Starts a process that takes a lock of the container, by default the one of the snapshot, and keeps it."""
        lock = str(self.container / name)
        holder = self.start("flock", "--no-fork", lock, "sleep", "600")
        wait_for(lambda: subprocess.run(["flock", "--nonblock", lock, "true"], check=False).returncode == 1,
                 "a held lock")
        return holder

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

    def glance(self):
        """The pixels of the screen as the X server keeps them: at once, also where the machine is busy."""
        return self.frame_buffer.look()

    def is_drawn(self, placement):
        return len(set(self.picture(*self.area(placement)))) > 20

    def set_resolution(self, dots_per_inch):
        """Says the resolution for texts, as desktops do."""
        self.run("xprop", "-root", "-f", "RESOURCE_MANAGER", "8s", "-set", "RESOURCE_MANAGER",
                 f"Xft.dpi:\t{dots_per_inch}\n")

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

    def press_keys(self, *keys):
        self.run("xdotool", "key", *keys)

    def drag(self, start, end):
        self.move(*start)
        self.run("xdotool", "mousedown", "1")
        steps = 8
        for i in range(1, steps + 1):
            self.move(*(round(a + (b - a) * i / steps) for a, b in zip(start, end)))
        self.run("xdotool", "mouseup", "1")

    def focused(self, name):
        """The window that has the keyboard, if it has that name."""
        window = self.output("xdotool", "getwindowfocus").strip()
        return window if self.output("xdotool", "getwindowname", window).strip() == name else None

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


def zone_where(moment, hour):
    """A zone without summer time whose clocks show that hour at a moment."""
    ahead = (hour - time.gmtime(moment).tm_hour + 11) % 24 - 11
    return f"Etc/GMT{-ahead:+d}" if ahead else "Etc/GMT"


class OwnZone:
    """Lets a program see another zone than the machine's: it gets a copy of the system's settings for its own."""

    def __init__(self, desktop):
        self.settings = desktop.folder / "etc"
        self.launcher = ["unshare", "--mount", "sh", "-c", f'mount --bind "{self.settings}" /etc && exec "$0"']
        if subprocess.run(["unshare", "--mount", "true"], stderr=subprocess.DEVNULL, check=False).returncode != 0:
            raise Skipped("no mounts of one's own here")
        subprocess.run(["cp", "-a", "/etc", str(self.settings)], stderr=subprocess.DEVNULL, check=False)
        del desktop.environment["TZ"]

    def move_to(self, zone):
        """Points the link of the zone elsewhere, as the system does."""
        link = self.settings / "localtime.new"
        link.symlink_to(f"/usr/share/zoneinfo/{zone}")
        link.rename(self.settings / "localtime")
