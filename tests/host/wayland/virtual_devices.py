"""A mouse and a keyboard that a Wayland compositor takes for real ones. Speaks the protocol by itself: a message is the
number of an object, a size, the number of a request, and arguments in words of 32 bits."""
import os
import socket
import struct
import time

DISPLAY = 1
LEFT, RIGHT = 0x110, 0x111
KEYS = {"Escape": 1, "Tab": 15, "Return": 28, "space": 57, "Down": 108, "Up": 103, "x": 45}
KEYMAP = b"""xkb_keymap {
    xkb_keycodes { include "evdev+aliases(qwerty)" };
    xkb_types { include "complete" };
    xkb_compat { include "complete" };
    xkb_symbols { include "pc+us+inet(evdev)" };
};\0"""


def text(value):
    data = value.encode() + b"\0"
    return struct.pack("=I", len(data)) + data + bytes(-len(data) % 4)


def words(*values):
    return struct.pack(f"={len(values)}I", *values)


class VirtualDevices:
    """Places of the mouse are in logical pixels of the whole desktop, whose size it is given."""

    def __init__(self, path, width, height):
        self.width, self.height = width, height
        self.socket = socket.socket(socket.AF_UNIX)
        self.socket.connect(str(path))
        self.last = DISPLAY
        self.registry = self.make(DISPLAY, 1)
        self.offered = offered = self.wait()
        seat = self.bind(offered, "wl_seat", 1)
        self.pointer = self.make(self.bind(offered, "zwlr_virtual_pointer_manager_v1", 1), 0, words(seat))
        self.keyboard = self.make(self.bind(offered, "zwp_virtual_keyboard_manager_v1", 1), 0, words(seat))
        self.send_keymap()
        self.wait()

    def close(self):
        self.socket.close()

    # ---- the protocol

    def send(self, thing, request, arguments=b"", files=()):
        message = words(thing, (8 + len(arguments)) << 16 | request) + arguments
        socket.send_fds(self.socket, [message], list(files))

    def make(self, factory, request, before=b""):
        self.last += 1
        self.send(factory, request, before + words(self.last))
        return self.last

    def bind(self, offered, name, version):
        number = offered[name]
        self.last += 1
        self.send(self.registry, 0, words(number) + text(name) + words(version, self.last))
        return self.last

    def receive(self, size):
        data = b""
        while len(data) < size:
            part = self.socket.recv(size - len(data))
            if not part:
                raise ConnectionError("the compositor went")
            data += part
        return data

    def wait(self):
        """Waits until all requests are answered, and returns what the compositor has offered meanwhile."""
        answer, offered = self.make(DISPLAY, 0), {}
        while True:
            thing, head = struct.unpack("=II", self.receive(8))
            body = self.receive((head >> 16) - 8)
            if thing == answer:
                return offered
            if thing == self.registry and head & 0xFFFF == 0:
                number, length = struct.unpack_from("=II", body)
                offered[body[8:8 + length - 1].decode()] = number
            if thing == DISPLAY and head & 0xFFFF == 0:
                raise ConnectionError(body)

    @staticmethod
    def now():
        return int(time.monotonic() * 1000) & 0xFFFFFFFF

    # ---- the devices

    def send_keymap(self):
        file = os.memfd_create("keymap")
        os.write(file, KEYMAP)
        self.send(self.keyboard, 0, words(1, len(KEYMAP)), [file])
        os.close(file)

    def frame(self):
        self.send(self.pointer, 4)
        self.wait()

    def move(self, x, y):
        self.send(self.pointer, 1, words(self.now(), x, y, self.width, self.height))
        self.frame()

    def button(self, button, is_down):
        self.send(self.pointer, 2, words(self.now(), button, int(is_down)))
        self.frame()

    def key(self, name):
        for is_down in (1, 0):
            self.send(self.keyboard, 1, words(self.now(), KEYS[name], is_down))
            self.wait()
